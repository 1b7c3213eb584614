// The charts of the page: inline SVG, scaled by the page, coloured by its style sheet (classes), each with a
// label for those who do not see it and a title on every mark.
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <vector>

namespace quillmere::lookback {

/// Focus, a column a stretch. When `withPlanned`, worked time instead, in front of a wider column for what
/// was planned for the same sessions.
std::string focusChart(const std::vector<figures::Stretch>& row, figures::Unit unit, bool withPlanned,
                       const std::string& label);

/// How the sessions of each stretch came out, in parts of a whole column.
std::string completionChart(const std::vector<figures::Stretch>& row, figures::Unit unit,
                            const std::string& label);

/// The means of energy and morale from 1 to 5, as two lines that break where there is nothing.
std::string ratingChart(const std::vector<figures::Stretch>& row, figures::Unit unit,
                        const std::string& label);

/// How sessions came out by their rating, a bar for each from 1 to 5.
std::string byRatingChart(const figures::ByRating& byRating, const std::string& label);

/// The weeks of a heat map from the one with the index `first`, `count` of them.
std::string heatChart(const figures::LookBack& look, const figures::HeatMap& map, std::size_t first,
                      std::size_t count, const std::string& label);

/// A key to colours: what each class stands for.
struct KeyEntry {
    std::string colourClass;
    std::string text;
};
std::string keyOf(const std::vector<KeyEntry>& entries);

}  // namespace quillmere::lookback
