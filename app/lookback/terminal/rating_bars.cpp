#include "lookback/terminal/charts.hpp"

#include "base/text/columns.hpp"
#include "lookback/day_text.hpp"
#include "lookback/terminal/drawing.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::lookback {
namespace {

using QuillmereDesign::Accent;

/// A bar of the whole width, divided by the completions.
std::string partsOf(const figures::Completions& completions, std::size_t width, const TerminalPage& page)
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
        if (column > drawn) {
            bar += page.style.marked(repeated(glyphsOf(page).completions[index], column - drawn),
                                     allCases<CompletionResult>()[index]);
        }
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

}  // namespace

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
    for (const figures::Period& month : figures::lastPeriods(look, figures::Unit::month, months)) {
        const std::string energy = filledUp(bar(month.tally.energy), numberWidth + barWidth + 1);
        text += page.style.dimmed(filledUp(labelOf(figures::Unit::month, month.first), labelWidth)) +
                page.style.tinted(energy, Accent::plan) +
                page.style.tinted(bar(month.tally.morale), Accent::rest) + "\n";
    }
    return text;
}

std::string completionLines(const figures::LookBack& look, const TerminalPage& page)
{
    constexpr std::size_t labelWidth = 15;
    constexpr std::size_t mostBar = 20;
    const Glyphs& glyphs = glyphsOf(page);
    // The text of all sessions together is the longest.
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
            const std::string bar = partsOf(completions, barWidth, page);
            text += page.style.dimmed(filledUp(label, labelWidth)) + bar + (bar.empty() ? "" : " ") +
                    (figures::total(completions) > 0 ? completionsText(completions) : "none") + "\n";
        }
    }
    return text;
}

}  // namespace quillmere::lookback
