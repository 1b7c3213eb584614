#include "lookback/terminal/terminal_report.hpp"

#include "base/text/columns.hpp"
#include "lookback/answers/answer.hpp"
#include "lookback/terminal/answer_lines.hpp"
#include "lookback/terminal/charts.hpp"
#include "lookback/terminal/drawing.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace quillmere::lookback {
namespace {

/// A name with its text beside it, cut after so many lines.
struct Entry {
    std::string name;
    std::string text;
    std::size_t mostLines;
};

std::string entryLines(Entry entry, std::size_t nameWidth, const TerminalPage& page)
{
    const std::size_t room = page.width - nameWidth;
    std::vector<std::string> lines = base::linesWithin(entry.text, room);
    if (lines.size() > entry.mostLines) {
        std::string& last = lines[entry.mostLines - 1];
        last = cutTo(room, last + " " + lines[entry.mostLines], page);
        lines.resize(entry.mostLines);
    }
    std::string text;
    for (const std::string& line : lines) {
        text += page.style.dimmed(filledUp(std::move(entry.name), nameWidth)) + line + "\n";
        entry.name.clear();
    }
    return text;
}

std::string factLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t nameWidth = 13;
    constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();
    std::string text;
    for (const Fact& fact : factsOf(look)) {
        text += entryLines({fact.name, fact.value, anyNumber}, nameWidth, page);
    }
    return text;
}

/// The first facts in a line each, then the answers in two.
std::string linesInShort(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t nameWidth = 23;
    constexpr std::size_t facts = 3;
    std::string text;
    const std::vector<Fact> allFacts = factsOf(look);
    for (std::size_t index = 0; index < std::min(facts, allFacts.size()); ++index) {
        text += entryLines({allFacts[index].name, allFacts[index].value, 1}, nameWidth, page);
    }
    for (const Answer& answer : answersOf(look)) {
        text += entryLines({answer.question, answer.inShort, 2}, nameWidth, page);
    }
    return text;
}

std::string notedLines(const std::string& text, const TerminalPage& page)
{
    std::string lines;
    for (const std::string& line : base::linesWithin(text, page.width)) {
        lines += page.style.dimmed(line) + "\n";
    }
    return lines;
}

bool isEmpty(const figures::LookBack& look) { return look.sessions.empty() && look.days.empty(); }

/// Today and this week come first, unless other days are asked for; the whole of time says least.
std::string answersAndFacts(const figures::LookBack& look, const TerminalPage& page)
{
    const std::vector<std::string> answers = answerLines(look, page);
    const bool isOfAllTime = !look.range.since && !look.range.until;
    std::string text = isOfAllTime ? answers.front().substr(1) + heading("In all", page) : "";
    text += factLines(look, page);
    for (std::size_t index = isOfAllTime ? 1 : 0; index < answers.size(); ++index) {
        text += answers[index];
    }
    return text;
}

std::string titleLines(const figures::LookBack& look, const TerminalPage& page)
{
    return page.style.accented("Look back", QuillmereDesign::Accent::review) + "  " + rangeText(look) +
           "\n\n";
}

}  // namespace

std::string terminalReport(const figures::LookBack& look, const TerminalPage& page)
{
    if (isEmpty(look)) {
        return emptyText(look) + "\n";
    }
    return titleLines(look, page) + answersAndFacts(look, page) + heatMapLines(look, page) +
           focusLines(look, page) + ratingLines(look, page) + completionLines(look, page) + "\n" +
           notedLines(countingText, page);
}

std::string terminalSummary(const figures::LookBack& look, const TerminalPage& page)
{
    if (isEmpty(look)) {
        return emptyText(look) + "\n";
    }
    return titleLines(look, page) + linesInShort(look, page) + "\n" +
           page.style.dimmed("With --all: the tables and the charts.") + "\n";
}

}  // namespace quillmere::lookback
