// The charts of the page: inline SVG, coloured by the classes of the style sheet, with a label for screen
// readers and a tooltip on every mark.
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <vector>

namespace quillmere::lookback {

/// Focus, one column per period. With `withPlanned`, worked time instead, in front of a wider column with the
/// time planned for the same sessions.
std::string focusChart(const std::vector<figures::Period>& row, figures::Unit unit, bool withPlanned,
                       const std::string& label);

/// The completions of each period as shares of a column.
std::string completionChart(const std::vector<figures::Period>& row, figures::Unit unit,
                            const std::string& label);

/// The means of energy and morale from 1 to 5, as two lines with gaps where there is none.
std::string ratingChart(const std::vector<figures::Period>& row, figures::Unit unit,
                        const std::string& label);

/// Completions by rating, one bar for each from 1 to 5.
std::string byRatingChart(const figures::ByRating& byRating, const std::string& label);

/// `count` weeks of a heat map from the index `first` on: days as squares, one column for each week.
std::string heatChart(const figures::LookBack& look, const figures::HeatMap& map, std::size_t first,
                      std::size_t count, const std::string& label);

}  // namespace quillmere::lookback
