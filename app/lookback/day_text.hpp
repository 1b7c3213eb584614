// Days and hours as text.
#pragma once

#include "base/text/hours.hpp"
#include "figures/local_day.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::lookback {

/// "2026-11-15", "2026-W46", "2026-11": the day, the week that begins on `first`, its month. A week has the
/// number of the week of ISO 8601 with most of its days, and belongs to the year that has most of them.
std::string labelOf(figures::Unit unit, figures::Day first);

/// The same without the year, for narrow charts: "15 Nov", "W46", "Nov".
std::string shortLabelOf(figures::Unit unit, figures::Day first);

/// "Sun".
std::string_view weekdayText(figures::Day day);

/// The hour that begins then, from 0: "09:00" or "9 am".
std::string hourText(std::size_t hour, base::Hours hours);

}  // namespace quillmere::lookback
