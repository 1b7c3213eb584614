#include "lookback/terminal/charts.hpp"

#include "base/text/columns.hpp"
#include "lookback/day_text.hpp"
#include "lookback/terminal/drawing.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace quillmere::lookback {
namespace {

using QuillmereDesign::Accent;

/// A chart with one bar per period.
struct Bars {
    std::string title;
    figures::Unit unit;
    std::size_t most;
    double figures::Tally::*seconds;
    std::string (*note)(const figures::Tally&);  ///< text after the time
};

std::string noNote(const figures::Tally&) { return {}; }

/// Only beside `workedSeconds`, which are of the same sessions.
std::string plannedNote(const figures::Tally& tally)
{
    return tally.plannedSeconds > 0 ? " of " + focusText(tally.plannedSeconds) : "";
}

std::string barLabel(figures::Unit unit, figures::Day first)
{
    const std::string label = labelOf(unit, first);
    return unit == figures::Unit::day ? std::string(weekdayText(first)).append(" ").append(label) : label;
}

std::string barLines(const figures::LookBack& look, const Bars& bars, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 15;
    const std::vector<figures::Period> row = figures::lastPeriods(look, bars.unit, bars.most);
    double greatest = 0;
    std::size_t textWidth = 0;
    std::vector<std::string> texts;
    for (const figures::Period& period : row) {
        greatest = std::max(greatest, period.tally.*bars.seconds);
        texts.push_back(focusText(period.tally.*bars.seconds) + bars.note(period.tally));
        textWidth = std::max(textWidth, base::columnsOf(texts.back()));
    }
    const std::size_t room = page.width - labelWidth - 1;
    const std::size_t barWidth = room > textWidth ? room - textWidth : 0;
    std::string text = heading(bars.title, page);
    for (std::size_t index = 0; index < row.size(); ++index) {
        const double share = greatest > 0 ? row[index].tally.*bars.seconds / greatest : 0;
        const std::string bar = barOf(share, barWidth, glyphsOf(page));
        text += page.style.dimmed(filledUp(barLabel(bars.unit, row[index].first), labelWidth)) +
                page.style.tinted(bar, Accent::focus) + (bar.empty() ? "" : " ") + texts[index] + "\n";
    }
    return text;
}

}  // namespace

std::string focusLines(const figures::LookBack& look, const TerminalPage& page)
{
    const Bars charts[] = {
        {.title = "Focus day by day",
         .unit = figures::Unit::day,
         .most = 14,
         .seconds = &figures::Tally::focusSeconds,
         .note = noNote},
        {.title = "Focus week by week, worked of planned",
         .unit = figures::Unit::week,
         .most = 12,
         .seconds = &figures::Tally::workedSeconds,
         .note = plannedNote},
        {.title = "Focus month by month, worked of planned",
         .unit = figures::Unit::month,
         .most = 12,
         .seconds = &figures::Tally::workedSeconds,
         .note = plannedNote},
    };
    std::string text;
    for (const Bars& bars : charts) {
        text += barLines(look, bars, page);
    }
    return text;
}

}  // namespace quillmere::lookback
