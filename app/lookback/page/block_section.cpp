#include "lookback/page/block_section.hpp"

#include "base/reach.hpp"
#include "base/text/count.hpp"
#include "base/text/local_time.hpp"
#include "lookback/page/markup.hpp"
#include "lookback/words.hpp"
#include "work/recall/block_account.hpp"
#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <set>
#include <vector>

namespace quillmere::lookback {
namespace {

/// The newest first.
std::vector<const Block*> blocksOf(const figures::LookBack& look)
{
    std::vector<const Block*> blocks;
    std::set<const Block*> known;
    for (auto ended = look.sessions.rbegin(); ended != look.sessions.rend(); ++ended) {
        if (known.insert(ended->block).second) {
            blocks.push_back(ended->block);
        }
    }
    return blocks;
}

/// Text of several lines.
std::string escapedLines(std::string_view text)
{
    std::string markup;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        markup += (begin == 0 ? "" : "<br/>") + escaped(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return markup;
}

std::string headingOf(const Block& block, base::Hours hours)
{
    const std::string titles = titlesOf(block);
    return element("span", {{"class", "when"}}, escaped(base::localText(base::finishedAt(block), hours))) +
           " " + element("strong", {}, escaped(titles.empty() ? "Untitled block" : titles)) + " " +
           element("span", {{"class", "when"}}, escaped(work::signsOf(block)));
}

std::string passageMarkup(const work::Passage& passage)
{
    std::string facts;
    for (const work::Fact& fact : passage.facts) {
        facts += element("dt", {}, escaped(fact.label)) + element("dd", {}, escapedLines(fact.text));
    }
    return element("h3", {}, escaped(passage.heading)) + element("dl", {}, facts);
}

/// Times are those seen from the day of the block, which its heading names.
std::string foldedBlock(const Block& block, base::Hours hours)
{
    std::string passages;
    for (const work::Passage& passage : work::accountOf(block, {base::finishedAt(block), hours})) {
        passages += passageMarkup(passage);
    }
    return element("details", {{"class", "block"}},
                   element("summary", {}, headingOf(block, hours)) + passages) +
           "\n";
}

}  // namespace

std::string blockSection(const figures::LookBack& look, std::size_t most)
{
    const std::vector<const Block*> blocks = blocksOf(look);
    const std::size_t shown = std::min(most, blocks.size());
    std::string content;
    for (std::size_t index = 0; index < shown; ++index) {
        content += foldedBlock(*blocks[index], look.habits.hours);
    }
    if (shown < blocks.size()) {
        content += element("p", {{"class", "note"}},
                           base::moreText(static_cast<std::int64_t>(blocks.size() - shown)) +
                               " before these; quillmere report --html FILE --all shows them too.");
    }
    return element("section", {{"class", "wide"}}, element("h2", {}, "The blocks") + content) + "\n";
}

}  // namespace quillmere::lookback
