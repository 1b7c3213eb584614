#include "lookback/page/charts.hpp"
#include "lookback/page/drawing.hpp"
#include "lookback/page/markup.hpp"
#include "lookback/page/plot.hpp"
#include "lookback/words.hpp"

#include <optional>

namespace quillmere::lookback {
namespace {

/// One of the two lines. Only points of neighbouring periods are joined.
std::string ratingLine(const std::vector<figures::Period>& row, figures::Unit unit,
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
            // Circles and squares, so that the lines differ without colours too.
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

std::string ratingChart(const std::vector<figures::Period>& row, figures::Unit unit, const std::string& label)
{
    std::string markup;
    for (std::int64_t rating = figures::lowestRating; rating <= figures::highestRating; ++rating) {
        const double share = static_cast<double>(rating - figures::lowestRating) /
                             (figures::highestRating - figures::lowestRating);
        markup += gridLine(plotBottom - share * (plotBottom - plotTop), std::to_string(rating));
    }
    markup += ratingLine(row, unit, &figures::Tally::energy, "energy") +
              ratingLine(row, unit, &figures::Tally::morale, "morale");
    return columnChart(markup, row, unit, label);
}

}  // namespace quillmere::lookback
