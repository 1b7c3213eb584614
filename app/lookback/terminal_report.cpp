#include "lookback/terminal_report.hpp"

#include "base/text/columns.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillmere::lookback {
namespace {

using QuillmereDesign::Accent;

/// The characters that charts are made of, once for each kind of page.
struct Glyphs {
    std::array<std::string_view, 8> eighths;  ///< of a bar's last column, the whole one last
    std::array<std::string_view, figures::HeatMap::levels + 1> heat;  ///< of rising weight
    std::array<std::string_view, 3> completions;                      ///< by CompletionResult
};

constexpr Glyphs blockGlyphs = {
    .eighths = {"▏", "▎", "▍", "▌", "▋", "▊", "▉", "█"},
    .heat = {"·", "░", "▒", "▓", "█"},
    .completions = {"█", "▒", "░"},
};
// Less than a half of a column is nothing, the rest is a whole one.
constexpr Glyphs plainGlyphs = {
    .eighths = {"", "", "", "#", "#", "#", "#", "#"},
    .heat = {".", "-", "+", "*", "#"},
    .completions = {"#", "+", "-"},
};

const Glyphs& glyphsOf(const TerminalPage& page) { return page.drawsBlocks ? blockGlyphs : plainGlyphs; }

std::string repeated(std::string_view text, std::size_t count)
{
    std::string row;
    for (std::size_t index = 0; index < count; ++index) {
        row += text;
    }
    return row;
}

std::string filledUp(std::string text, std::size_t width)
{
    const std::size_t taken = base::columnsOf(text);
    return text.append(width > taken ? width - taken : 0, ' ');
}

/// A bar of a share of the width, 0 to 1, as exact as the characters are.
std::string barOf(double share, std::size_t width, const Glyphs& glyphs)
{
    const double wanted = std::clamp(share, 0.0, 1.0) * static_cast<double>(width) * 8;
    const auto eighths = static_cast<std::size_t>(std::lround(wanted));
    std::string bar = repeated(glyphs.eighths.back(), eighths / 8);
    return eighths % 8 > 0 ? bar.append(glyphs.eighths[eighths % 8 - 1]) : bar;
}

std::string heading(const std::string& text, const TerminalPage& page)
{
    return "\n" + page.style.accented(text, Accent::neutral) + "\n";
}

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

/// The names of the months above the weeks in which they begin, where there is room.
std::string monthLine(const figures::HeatMap& map)
{
    std::string line;
    for (std::size_t week = 0; week < map.weeks; ++week) {
        const figures::Day monday = map.firstMonday + std::chrono::weeks(week);
        const figures::Day month = figures::firstOf(figures::Unit::month, monday + std::chrono::days(6));
        const std::string name = figures::shortLabelOf(figures::Unit::month, month);
        if (month >= monday && week >= line.size() + (line.empty() ? 0 : 1) &&
            week + name.size() <= map.weeks) {
            line = filledUp(line, week) + name;
        }
    }
    return line;
}

std::string heatMapLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 4;
    constexpr std::size_t weeksOfYear = 53;
    const Glyphs& glyphs = glyphsOf(page);
    const figures::HeatMap map = figures::heatMapOf(look, std::min(page.width - labelWidth, weeksOfYear));
    std::string text = heading("The year to " + figures::labelOf(figures::Unit::day, map.lastDay), page);
    text += page.style.dimmed(std::string(labelWidth, ' ') + monthLine(map)) + "\n";
    for (int weekday = 0; weekday < 7; ++weekday) {
        const figures::Day first = map.firstMonday + std::chrono::days(weekday);
        std::string row;
        for (std::size_t week = 0; week < map.weeks; ++week) {
            const figures::Day day = first + std::chrono::weeks(week);
            const std::optional<int> level = map.levelOf(day, figures::focusOn(look, day));
            row += level ? glyphs.heat[static_cast<std::size_t>(*level)] : " ";
        }
        text += page.style.dimmed(filledUp(std::string(figures::weekdayText(first)), labelWidth)) +
                page.style.accented(row.substr(0, row.find_last_not_of(' ') + 1), Accent::focus) + "\n";
    }
    std::string legend = "less ";
    for (const std::string_view glyph : glyphs.heat) {
        legend += glyph;
    }
    return text + std::string(labelWidth, ' ') +
           page.style.dimmed(legend + " more; most " + focusText(map.mostSeconds)) + "\n";
}

/// A chart of bars, one a stretch.
struct Bars {
    std::string title;
    figures::Unit unit;
    std::size_t most;
    double figures::Tally::*seconds;
    std::string (*note)(const figures::Tally&);  ///< what stands behind a bar besides its time
};

std::string noNote(const figures::Tally&) { return {}; }

/// For `workedSeconds`, which are those of the same sessions.
std::string plannedNote(const figures::Tally& tally)
{
    return tally.plannedSeconds > 0 ? " of " + focusText(tally.plannedSeconds) : "";
}

std::string barLabel(figures::Unit unit, figures::Day first)
{
    const std::string label = figures::labelOf(unit, first);
    return unit == figures::Unit::day ? std::string(figures::weekdayText(first)).append(" ").append(label)
                                      : label;
}

std::string barLines(const figures::LookBack& look, const Bars& bars, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 15;
    const std::vector<figures::Stretch> row = figures::lastStretches(look, bars.unit, bars.most);
    double greatest = 0;
    std::size_t textWidth = 0;
    std::vector<std::string> texts;
    for (const figures::Stretch& stretch : row) {
        greatest = std::max(greatest, stretch.tally.*bars.seconds);
        texts.push_back(focusText(stretch.tally.*bars.seconds) + bars.note(stretch.tally));
        textWidth = std::max(textWidth, base::columnsOf(texts.back()));
    }
    const std::size_t room = page.width - labelWidth - 1;
    const std::size_t barWidth = room > textWidth ? room - textWidth : 0;
    std::string text = heading(bars.title, page);
    for (std::size_t index = 0; index < row.size(); ++index) {
        const double share = greatest > 0 ? row[index].tally.*bars.seconds / greatest : 0;
        const std::string bar = barOf(share, barWidth, glyphsOf(page));
        text += page.style.dimmed(filledUp(barLabel(bars.unit, row[index].first), labelWidth)) +
                page.style.accented(bar, Accent::focus) + (bar.empty() ? "" : " ") + texts[index] + "\n";
    }
    return text;
}

/// Means of ratings over the months.
std::string ratingLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t months = 12;
    constexpr std::size_t labelWidth = 15;
    constexpr std::size_t numberWidth = 5;
    const std::size_t barWidth = std::min<std::size_t>((page.width - labelWidth) / 2 - numberWidth - 1, 20);
    std::string text = heading("Energy and morale, month by month, of 5", page);
    text += page.style.dimmed(std::string(labelWidth, ' ') + filledUp("energy", barWidth + numberWidth + 1) +
                              "morale") +
            "\n";
    const auto bar = [&](const figures::Ratings& ratings) {
        const double share = ratings.mean().value_or(0) / static_cast<double>(figures::highestRating);
        return filledUp(meanText(ratings), numberWidth) + barOf(share, barWidth, glyphsOf(page));
    };
    for (const figures::Stretch& month : figures::lastStretches(look, figures::Unit::month, months)) {
        const std::string energy = filledUp(bar(month.tally.energy), numberWidth + barWidth + 1);
        text += page.style.dimmed(filledUp(figures::labelOf(figures::Unit::month, month.first), labelWidth)) +
                page.style.accented(energy, Accent::plan) +
                page.style.accented(bar(month.tally.morale), Accent::rest) + "\n";
    }
    return text;
}

/// A bar in three parts, which together fill the width.
std::string partsOf(const figures::Completions& completions, std::size_t width, const Glyphs& glyphs)
{
    const std::int64_t all = figures::total(completions);
    std::string bar;
    std::int64_t before = 0;
    std::size_t drawn = 0;
    for (std::size_t index = 0; index < completions.size() && all > 0; ++index) {
        before += completions[index];
        const double end =
            static_cast<double>(before) / static_cast<double>(all) * static_cast<double>(width);
        const auto column = static_cast<std::size_t>(std::lround(end));
        bar += repeated(glyphs.completions[index], column - drawn);
        drawn = column;
    }
    return bar;
}

std::string completionLegend(const Glyphs& glyphs)
{
    std::string legend;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        legend.append(legend.empty() ? "" : "  ")
            .append(glyphs.completions[static_cast<std::size_t>(result)])
            .append(" ")
            .append(completionText(result));
    }
    return legend;
}

std::string completionLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 15;
    constexpr std::size_t mostBar = 20;
    const Glyphs& glyphs = glyphsOf(page);
    // No part of them has a longer text than all sessions together.
    const std::size_t taken = labelWidth + 1 + base::columnsOf(completionsText(look.total.completions));
    const std::size_t barWidth = std::min(page.width > taken ? page.width - taken : 0, mostBar);
    std::string text = heading("Completion by energy and by morale", page);
    text += page.style.dimmed(std::string(labelWidth, ' ') + completionLegend(glyphs)) + "\n";
    for (const auto& [name, byRating] :
         {std::pair{"energy", &look.byEnergy}, std::pair{"morale", &look.byMorale}}) {
        for (std::int64_t rating = figures::lowestRating; rating <= figures::highestRating; ++rating) {
            const figures::Completions& completions =
                (*byRating)[static_cast<std::size_t>(rating - figures::lowestRating)];
            const std::string label = std::string(name) + " " + std::to_string(rating);
            const std::string bar = partsOf(completions, barWidth, glyphs);
            text += page.style.dimmed(filledUp(label, labelWidth)) + bar + (bar.empty() ? "" : " ") +
                    (figures::total(completions) > 0 ? completionsText(completions) : "none") + "\n";
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
    std::string text = page.style.accented("Look back", Accent::review) + "  " + rangeText(look) + "\n\n";
    text += factLines(look, page) + heatMapLines(look, page);
    for (const Bars& bars : charts) {
        text += barLines(look, bars, page);
    }
    return text + ratingLines(look, page) + completionLines(look, page);
}

}  // namespace quillmere::lookback
