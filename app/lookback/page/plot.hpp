// The plot of a chart: its place in the drawing, its grid and its columns.
#pragma once

#include "figures/look_back.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace quillmere::lookback {

// In units of the drawing. The margins have room for the largest text of the style sheet, that on a phone.
inline constexpr double chartWidth = 400;
inline constexpr double chartHeight = 186;
inline constexpr double plotLeft = 68;
inline constexpr double plotRight = 396;
inline constexpr double plotTop = 14;
inline constexpr double plotBottom = 160;
inline constexpr double labelGap = 20;  ///< from the plot to the text below it

/// A horizontal line across the plot with a text on its left.
std::string gridLine(double y, const std::string& text);

/// Columns of one width, side by side.
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

/// Texts below the columns, as many as fit. The last column always has one, beside it if necessary.
std::string columnLabels(const std::vector<figures::Period>& row, figures::Unit unit);

/// The tooltip of a mark: "2026-W46: 25 min".
std::string titleOf(figures::Unit unit, const figures::Period& period, const std::string& text);

/// A chart of the usual size: its plot above the texts of its columns.
std::string columnChart(const std::string& plot, const std::vector<figures::Period>& row, figures::Unit unit,
                        const std::string& label);

}  // namespace quillmere::lookback
