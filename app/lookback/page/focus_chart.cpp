#include "lookback/page/charts.hpp"
#include "lookback/page/drawing.hpp"
#include "lookback/page/plot.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::lookback {
namespace {

/// An axis of time from zero in at most four steps: a quarter of an hour, or an hour doubled as often as
/// needed.
struct TimeAxis {
    explicit TimeAxis(double greatest)
    {
        constexpr int mostSteps = 4;
        if (step * mostSteps < greatest) {
            step = 60 * 60;
        }
        while (step * mostSteps < greatest) {
            step *= 2;
        }
        steps = std::max(static_cast<int>(std::ceil(greatest / step)), 1);
    }

    double height(double seconds) const { return seconds / (step * steps) * (plotBottom - plotTop); }

    std::string lines() const
    {
        std::string markup;
        for (int index = 0; index <= steps; ++index) {
            const double seconds = step * index;
            markup += gridLine(plotBottom - height(seconds), index == 0 ? "0" : focusText(seconds));
        }
        return markup;
    }

    double step = 15 * 60;
    int steps = 1;
};

/// Planned time is known per session, so it is compared with the worked time of the sessions that began in
/// the period; otherwise focus counts on the days on which it was spent.
double secondsOf(const figures::Tally& tally, bool withPlanned)
{
    return withPlanned ? tally.workedSeconds : tally.focusSeconds;
}

}  // namespace

std::string focusChart(const std::vector<figures::Period>& row, figures::Unit unit, bool withPlanned,
                       const std::string& label)
{
    double greatest = 0;
    for (const figures::Period& period : row) {
        greatest = std::max({greatest, secondsOf(period.tally, withPlanned),
                             withPlanned ? period.tally.plannedSeconds : 0.0});
    }
    const TimeAxis axis(greatest);
    const Columns columns{row.size()};
    std::string markup = axis.lines();
    const auto column = [&](std::size_t index, double seconds, double width, const char* colourClass,
                            const std::string& text) {
        const double height = axis.height(seconds);
        return rectangle({columns.centre(index) - width / 2, plotBottom - height, width, height}, colourClass,
                         titleOf(unit, row[index], text));
    };
    // The planned column is wider, so that it is visible behind a higher worked one.
    const double innerWidth = columns.width() * (withPlanned ? 0.6 : 1);
    for (std::size_t index = 0; index < row.size(); ++index) {
        const figures::Tally& tally = row[index].tally;
        const double seconds = secondsOf(tally, withPlanned);
        const std::string planned = withPlanned ? ", planned " + focusText(tally.plannedSeconds) : "";
        const std::string text = focusText(seconds) + planned;
        if (withPlanned && tally.plannedSeconds > 0) {
            markup += column(index, tally.plannedSeconds, columns.width(), "planned", text);
        }
        if (seconds > 0) {
            markup += column(index, seconds, innerWidth, "focus", text);
        }
    }
    return columnChart(markup, row, unit, label);
}

}  // namespace quillmere::lookback
