#include "lookback/charts.hpp"

#include "lookback/drawing.hpp"
#include "lookback/markup.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::lookback {
namespace {

// In units of the drawing, with room for the largest texts of the style sheet, those on a phone.
constexpr double chartWidth = 400;
constexpr double chartHeight = 186;
constexpr double plotLeft = 68;
constexpr double plotRight = 396;
constexpr double plotTop = 14;
constexpr double plotBottom = 160;
constexpr double labelGap = 20;  ///< from the plot to the text below it

std::string gridLine(double y, const std::string& text)
{
    return element("line", {{"class", "grid"},
                            {"x1", coordinate(plotLeft)},
                            {"x2", coordinate(plotRight)},
                            {"y1", coordinate(y)},
                            {"y2", coordinate(y)}}) +
           caption(plotLeft - 6, y + 5, "end", text);
}

/// Where columns stand: side by side, of one width.
struct Columns {
    std::size_t count;

    double step() const
    {
        return (plotRight - plotLeft) / static_cast<double>(std::max<std::size_t>(count, 1));
    }
    double width() const { return std::min(step() * 0.8, 40.0); }
    double centre(std::size_t index) const { return plotLeft + (static_cast<double>(index) + 0.5) * step(); }
    double left(std::size_t index) const { return centre(index) - width() / 2; }
};

/// Texts below the columns, as many as there is room for; the last one always, if need be beside its column.
std::string columnLabels(const std::vector<figures::Stretch>& row, figures::Unit unit)
{
    constexpr double widest = 64;  // with the space beside it
    const Columns columns{row.size()};
    const bool haveRoom = columns.step() >= widest;
    const auto every = haveRoom ? 1 : static_cast<std::size_t>(std::ceil(1.5 * widest / columns.step()));
    std::string markup;
    for (std::size_t index = 0; index < row.size(); ++index) {
        if ((row.size() - 1 - index) % every == 0) {
            const bool isMoved = index + 1 == row.size() && !haveRoom;
            const double x = isMoved ? plotRight : columns.centre(index);
            markup += caption(x, plotBottom + labelGap, isMoved ? "end" : "middle",
                              figures::shortLabelOf(unit, row[index].first));
        }
    }
    return markup;
}

/// An axis of time from zero: at most four steps, of a quarter of an hour, or of hours where these are too
/// short, doubled as often as it takes.
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

/// How long the person was at it: on these days, or, beside what was planned for them, in the sessions that
/// began on them.
double secondsOf(const figures::Tally& tally, bool withPlanned)
{
    return withPlanned ? tally.workedSeconds : tally.focusSeconds;
}

std::string titleOf(figures::Unit unit, const figures::Stretch& stretch, const std::string& text)
{
    return figures::labelOf(unit, stretch.first) + ": " + text;
}

/// The parts of a whole, in the order of CompletionResult, along `length`.
template <class Draw>
void forEachPart(const figures::Completions& completions, double length, Draw draw)
{
    const std::int64_t all = figures::total(completions);
    double end = 0;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        const std::int64_t count = completions[static_cast<std::size_t>(result)];
        if (count > 0) {
            const double part = static_cast<double>(count) / static_cast<double>(all) * length;
            draw(completionText(result), end, part);
            end += part;
        }
    }
}

/// One of the two lines of the ratings. Points that have neighbours are joined.
std::string ratingLine(const std::vector<figures::Stretch>& row, figures::Unit unit,
                       figures::Ratings figures::Tally::*member, const std::string& name)
{
    const Columns columns{row.size()};
    const auto height = [](double mean) {
        return plotBottom - (mean - figures::lowestRating) /
                                static_cast<double>(figures::highestRating - figures::lowestRating) *
                                (plotBottom - plotTop);
    };
    std::string path;
    std::string points;
    bool isDrawing = false;
    for (std::size_t index = 0; index < row.size(); ++index) {
        const figures::Ratings& ratings = row[index].tally.*member;
        const std::optional<double> mean = ratings.mean();
        if (mean) {
            const double x = columns.centre(index);
            const double y = height(*mean);
            path += (isDrawing ? " L" : " M") + coordinate(x) + " " + coordinate(y);
            constexpr double size = 5;
            const std::string title = titleOf(unit, row[index], name + " " + meanText(ratings));
            // Round ones and square ones, for those to whom colours look alike.
            points += member == &figures::Tally::energy
                          ? element("circle",
                                    {{"class", name},
                                     {"cx", coordinate(x)},
                                     {"cy", coordinate(y)},
                                     {"r", coordinate(size / 2)}},
                                    element("title", {}, escaped(title)))
                          : rectangle({x - size / 2, y - size / 2, size, size}, name, title);
        }
        isDrawing = mean.has_value();
    }
    return (path.empty() ? "" : element("path", {{"class", "line " + name}, {"d", path.substr(1)}})) + points;
}

}  // namespace

std::string focusChart(const std::vector<figures::Stretch>& row, figures::Unit unit, bool withPlanned,
                       const std::string& label)
{
    double greatest = 0;
    for (const figures::Stretch& stretch : row) {
        greatest = std::max({greatest, secondsOf(stretch.tally, withPlanned),
                             withPlanned ? stretch.tally.plannedSeconds : 0.0});
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
    // What was planned is seen on both sides of what was worked, whichever is more.
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
    return drawing(chartWidth, chartHeight, label, markup + columnLabels(row, unit));
}

std::string completionChart(const std::vector<figures::Stretch>& row, figures::Unit unit,
                            const std::string& label)
{
    const Columns columns{row.size()};
    constexpr double length = plotBottom - plotTop;
    std::string markup;
    for (const int percent : {0, 50, 100}) {
        markup += gridLine(plotBottom - length * percent / 100, std::to_string(percent) + " %");
    }
    for (std::size_t index = 0; index < row.size(); ++index) {
        const figures::Completions& completions = row[index].tally.completions;
        forEachPart(completions, length, [&](const std::string& colourClass, double start, double part) {
            markup += rectangle({columns.left(index), plotBottom - start - part, columns.width(), part},
                                colourClass, titleOf(unit, row[index], completionsText(completions)));
        });
    }
    return drawing(chartWidth, chartHeight, label, markup + columnLabels(row, unit));
}

std::string ratingChart(const std::vector<figures::Stretch>& row, figures::Unit unit,
                        const std::string& label)
{
    std::string markup;
    for (std::int64_t rating = figures::lowestRating; rating <= figures::highestRating; ++rating) {
        const double share = static_cast<double>(rating - figures::lowestRating) /
                             (figures::highestRating - figures::lowestRating);
        markup += gridLine(plotBottom - share * (plotBottom - plotTop), std::to_string(rating));
    }
    markup += ratingLine(row, unit, &figures::Tally::energy, "energy") +
              ratingLine(row, unit, &figures::Tally::morale, "morale");
    return drawing(chartWidth, chartHeight, label, markup + columnLabels(row, unit));
}

std::string byRatingChart(const figures::ByRating& byRating, const std::string& label)
{
    constexpr double left = 20;
    constexpr double right = 264;
    constexpr double rowHeight = 26;
    constexpr double barHeight = 16;
    std::string markup;
    // The best on top, as on the charts that have an axis.
    for (std::int64_t rating = figures::highestRating; rating >= figures::lowestRating; --rating) {
        const double y = static_cast<double>(figures::highestRating - rating) * rowHeight + 4;
        const figures::Completions& completions =
            byRating[static_cast<std::size_t>(rating - figures::lowestRating)];
        const double textY = y + barHeight / 2 + 4;
        markup += caption(left - 8, textY, "end", std::to_string(rating));
        markup += rectangle({left, y, right - left, barHeight}, "empty", "");
        forEachPart(
            completions, right - left, [&](const std::string& colourClass, double start, double part) {
                markup +=
                    rectangle({left + start, y, part, barHeight}, colourClass, completionsText(completions));
            });
        markup += caption(right + 8, textY, "start", countText(figures::total(completions), "session"));
    }
    return drawing(chartWidth, rowHeight * static_cast<double>(byRating.size()), label, markup);
}

}  // namespace quillmere::lookback
