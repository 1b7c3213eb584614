// Days as text.
#pragma once

#include "figures/local_day.hpp"

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// "2026-11-15", "2026-W46", "2026-11". A week belongs to the year that has most of its days.
std::string labelOf(figures::Unit unit, figures::Day day);

/// The same without the year, for narrow charts: "15 Nov", "W46", "Nov".
std::string shortLabelOf(figures::Unit unit, figures::Day day);

/// "Sun".
std::string_view weekdayText(figures::Day day);

}  // namespace quillmere::lookback
