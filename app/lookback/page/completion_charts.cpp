#include "base/text/count.hpp"
#include "lookback/page/charts.hpp"
#include "lookback/page/drawing.hpp"
#include "lookback/page/plot.hpp"
#include "lookback/words.hpp"

namespace quillmere::lookback {
namespace {

/// Calls `draw(class, start, length)` for each result that occurred, as a share of `length`.
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

}  // namespace

std::string completionChart(const std::vector<figures::Period>& row, figures::Unit unit,
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
    return columnChart(markup, row, unit, label);
}

std::string byRatingChart(const figures::ByRating& byRating, const std::string& label)
{
    constexpr double left = 20;
    constexpr double right = 264;
    constexpr double rowHeight = 26;
    constexpr double barHeight = 16;
    std::string markup;
    // The best on top, as on the charts with an axis.
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
        markup += caption(right + 8, textY, "start", base::countText(figures::total(completions), "session"));
    }
    return drawing(chartWidth, rowHeight * static_cast<double>(byRating.size()), label, markup);
}

}  // namespace quillmere::lookback
