#include "lookback/page/plot.hpp"

#include "lookback/day_text.hpp"
#include "lookback/page/drawing.hpp"
#include "lookback/page/markup.hpp"

#include <cmath>

namespace quillmere::lookback {

std::string gridLine(double y, const std::string& text)
{
    return element("line", {{"class", "grid"},
                            {"x1", coordinate(plotLeft)},
                            {"x2", coordinate(plotRight)},
                            {"y1", coordinate(y)},
                            {"y2", coordinate(y)}}) +
           caption(plotLeft - 6, y + 5, "end", text);
}

std::string columnLabels(const std::vector<figures::Period>& row, figures::Unit unit)
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
                              shortLabelOf(unit, row[index].first));
        }
    }
    return markup;
}

std::string titleOf(figures::Unit unit, const figures::Period& period, const std::string& text)
{
    return labelOf(unit, period.first) + ": " + text;
}

std::string columnChart(const std::string& plot, const std::vector<figures::Period>& row, figures::Unit unit,
                        const std::string& label)
{
    return drawing(chartWidth, chartHeight, label, plot + columnLabels(row, unit));
}

}  // namespace quillmere::lookback
