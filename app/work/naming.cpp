#include "work/naming.hpp"

#include "base/refusal.hpp"
#include "base/text/count.hpp"
#include "base/text/quotes.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <vector>

namespace quillmere::work {
namespace {

constexpr std::size_t shortestName = 4;

base::Refusal refusal(const std::string& message) { return {base::Refusal::Kind::invalidRequest, message}; }

/// The finished blocks and the current one.
std::vector<const Block*> blocksOf(const QuillmereState& state)
{
    std::vector<const Block*> blocks;
    if (state.currentBlock) {
        blocks.push_back(&*state.currentBlock);
    }
    for (const Block& block : state.blockHistory) {
        blocks.push_back(&block);
    }
    return blocks;
}

std::string upperCase(std::string_view text)
{
    std::string upper;
    for (const char letter : text) {
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return upper;
}

std::size_t commonLength(const std::string& left, const std::string& right)
{
    const auto [end, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(end - left.begin());
}

/// The identifiers of all blocks as texts, in order, each once.
std::vector<std::string> sortedTexts(const QuillmereState& state)
{
    std::vector<std::string> texts;
    for (const Block* const block : blocksOf(state)) {
        texts.push_back(block->id.text());
    }
    std::sort(texts.begin(), texts.end());
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
    return texts;
}

/// The texts that share most with one stand beside it in the order.
std::string shortNameAmong(const std::vector<std::string>& texts, const Identifier& block)
{
    const std::string text = block.text();
    const auto [below, above] = std::equal_range(texts.begin(), texts.end(), text);
    std::size_t length = shortestName;
    if (below != texts.begin()) {
        length = std::max(length, commonLength(text, *std::prev(below)) + 1);
    }
    if (above != texts.end()) {
        length = std::max(length, commonLength(text, *above) + 1);
    }
    return text.substr(0, length);
}

base::Refusal severalBlocks(std::string_view name, const std::vector<const Block*>& found,
                            const QuillmereState& state)
{
    std::string names;
    for (const Block* const block : found) {
        names += (names.empty() ? "" : ", ") + shortName(block->id, state);
    }
    return refusal("Several blocks begin with " + base::inQuotes(name) + ": " + names +
                   ". Name one of them.");
}

const Block& currentBlock(const QuillmereState& state)
{
    if (!state.currentBlock) {
        throw refusal("There is no block at hand. quillmere history prints the names of finished blocks.");
    }
    return *state.currentBlock;
}

const WorkSession& sessionNumbered(std::string_view digits, const Block& block)
{
    std::size_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > block.sessions.size()) {
        throw refusal("The block has no session " + base::inQuotes(digits) + "; it has " +
                      base::countText(std::ssize(block.sessions), "session") + ".");
    }
    return block.sessions[number - 1];
}

}  // namespace

std::string shortName(const Identifier& block, const QuillmereState& state)
{
    return shortNameAmong(sortedTexts(state), block);
}

std::vector<std::string> shortNames(const QuillmereState& state)
{
    const std::vector<std::string> texts = sortedTexts(state);
    std::vector<std::string> names;
    for (const Block& block : state.blockHistory) {
        names.push_back(shortNameAmong(texts, block.id));
    }
    return names;
}

bool isNamed(const Identifier& block, std::string_view name)
{
    return name.size() >= shortestName && block.text().starts_with(upperCase(name));
}

bool isBlockNamed(std::string_view name, const QuillmereState& state)
{
    const std::vector<const Block*> blocks = blocksOf(state);
    return std::any_of(blocks.begin(), blocks.end(),
                       [&](const Block* block) { return isNamed(block->id, name); });
}

const Block& blockNamed(std::string_view name, const QuillmereState& state)
{
    if (name.size() < shortestName) {
        throw refusal(base::inQuotes(name) +
                      " is too short for the name of a block: give at least four characters, "
                      "as quillmere history prints them.");
    }
    std::vector<const Block*> found = blocksOf(state);
    std::erase_if(found, [&](const Block* block) { return !isNamed(block->id, name); });
    if (found.empty()) {
        throw refusal("No block is called " + base::inQuotes(name) + "; see quillmere history.");
    }
    if (found.size() > 1) {
        throw severalBlocks(name, found, state);
    }
    return *found.front();
}

Named named(std::string_view name, const QuillmereState& state)
{
    const std::size_t point = name.find('.');
    const std::string_view ofBlock = name.substr(0, point);
    const Block& block = point == 0 ? currentBlock(state) : blockNamed(ofBlock, state);
    if (point == std::string_view::npos) {
        return {block, nullptr};
    }
    return {block, &sessionNumbered(name.substr(point + 1), block)};
}

}  // namespace quillmere::work
