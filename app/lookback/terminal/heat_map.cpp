#include "lookback/terminal/charts.hpp"

#include "lookback/day_text.hpp"
#include "lookback/terminal/drawing.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <optional>

namespace quillmere::lookback {
namespace {

using QuillmereDesign::Accent;

/// The names of the months above the weeks in which they begin, as far as there is room.
std::string monthLine(const figures::HeatMap& map)
{
    std::string line;
    for (std::size_t week = 0; week < map.weeks; ++week) {
        const figures::Day weekBegin = map.firstWeek + std::chrono::weeks(week);
        const figures::Day month = figures::firstOf(figures::Unit::month, weekBegin + std::chrono::days(6));
        const std::string name = shortLabelOf(figures::Unit::month, month);
        if (month >= weekBegin && week >= line.size() + (line.empty() ? 0 : 1) &&
            week + name.size() <= map.weeks) {
            line = filledUp(line, week) + name;
        }
    }
    return line;
}

}  // namespace

std::string heatMapLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 4;
    constexpr std::size_t weeksOfYear = 53;
    const Glyphs& glyphs = glyphsOf(page);
    const figures::HeatMap map = figures::heatMapOf(look, std::min(page.width - labelWidth, weeksOfYear));
    std::string text = heading("The year to " + labelOf(figures::Unit::day, map.lastDay), page);
    text += page.style.dimmed(std::string(labelWidth, ' ') + monthLine(map)) + "\n";
    for (int weekday = 0; weekday < 7; ++weekday) {
        const figures::Day first = map.firstWeek + std::chrono::days(weekday);
        std::string row;
        for (std::size_t week = 0; week < map.weeks; ++week) {
            const figures::Day day = first + std::chrono::weeks(week);
            const std::optional<int> level = map.levelOf(day, figures::focusOn(look, day));
            row += level ? glyphs.heat[static_cast<std::size_t>(*level)] : " ";
        }
        text += page.style.dimmed(filledUp(std::string(weekdayText(first)), labelWidth)) +
                page.style.tinted(row.substr(0, row.find_last_not_of(' ') + 1), Accent::focus) + "\n";
    }
    std::string legend = "less ";
    for (const std::string_view glyph : glyphs.heat) {
        legend += glyph;
    }
    return text + std::string(labelWidth, ' ') +
           page.style.dimmed(legend + " more; most " + focusText(map.mostSeconds)) + "\n";
}

}  // namespace quillmere::lookback
