#include "lookback/terminal/terminal_report.hpp"

#include "base/text/columns.hpp"
#include "lookback/terminal/charts.hpp"
#include "lookback/terminal/drawing.hpp"
#include "lookback/words.hpp"

#include <utility>

namespace quillmere::lookback {
namespace {

std::string factLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t nameWidth = 13;
    std::string text;
    for (const Fact& fact : factsOf(look)) {
        std::string name = fact.name;
        for (const std::string& line : base::wrapped(fact.value, page.width - nameWidth)) {
            text += page.style.dimmed(filledUp(std::move(name), nameWidth)) + line + "\n";
            name.clear();
        }
    }
    return text;
}

}  // namespace

std::string terminalReport(const figures::LookBack& look, const TerminalPage& page)
{
    if (look.sessions.empty() && look.days.empty()) {
        return emptyText(look) + "\n";
    }
    return page.style.accented("Look back", QuillmereDesign::Accent::review) + "  " + rangeText(look) +
           "\n\n" + factLines(look, page) + heatMapLines(look, page) + focusLines(look, page) +
           ratingLines(look, page) + completionLines(look, page);
}

}  // namespace quillmere::lookback
