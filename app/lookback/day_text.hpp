// Days as text.
#pragma once

#include "figures/local_day.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::lookback {

/// "2026-11-15", "2026-W46", "2026-11". A week belongs to the year that has most of its days.
std::string labelOf(figures::Unit unit, figures::Day day);

/// The same without the year, for narrow charts: "15 Nov", "W46", "Nov".
std::string shortLabelOf(figures::Unit unit, figures::Day day);

/// "Sun".
std::string_view weekdayText(figures::Day day);

/// Reads "2026-11-15", "today" or "30d" (30 days before today). Absent for any other text and for a day that
/// the calendar does not have.
std::optional<figures::Day> dayFromText(std::string_view text, figures::Day today);

}  // namespace quillmere::lookback
