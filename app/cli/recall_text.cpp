#include "cli/recall_text.hpp"

#include "base/system/terminal_width.hpp"
#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"

#include <algorithm>
#include <ostream>
#include <string>

namespace quillmere::cli {
namespace {

constexpr std::size_t indent = 2;
constexpr std::size_t gap = 2;
constexpr std::size_t widest = 88;
constexpr std::size_t narrowest = 24;

void printFact(std::ostream& out, const work::Fact& fact, std::size_t labels, const base::Style& style,
               std::size_t columns)
{
    const std::size_t left = indent + labels;
    const std::size_t room = columns > left + narrowest ? columns - left : narrowest;
    const std::string label =
        fact.completion ? style.marked(fact.label, *fact.completion) : style.dimmed(fact.label);
    std::string before = std::string(indent, ' ') + label +
                         std::string(labels - std::min(labels, base::columnsOf(fact.label)), ' ');
    for (const std::string& line : base::linesWithin(fact.text, room)) {
        out << before << line << '\n';
        before = std::string(left, ' ');
    }
}

}  // namespace

void printRecall(std::ostream& out, const work::Recall& recall, const base::Style& style, std::size_t columns)
{
    const std::size_t widestLabel = work::labelColumns(recall);
    const std::size_t labels = widestLabel == 0 ? 0 : widestLabel + gap;
    for (const work::Passage& passage : recall) {
        out << '\n';
        if (!passage.heading.empty()) {
            for (const std::string& line : base::linesWithin(passage.heading, columns)) {
                out << line << '\n';
            }
        }
        for (const work::Fact& fact : passage.facts) {
            printFact(out, fact, labels, style, columns);
        }
    }
}

std::size_t textColumns() { return std::min(base::terminalWidth().value_or(widest), widest); }

}  // namespace quillmere::cli
