// Durations as people write them.
#pragma once

#include "base/limits.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::base {

/// Seconds of "25", "25m", "1h30m", "90s", "2d": whole numbers with units in falling order, a bare
/// number in minutes. Absent for any other text, and for less than a second or more than 366 days.
std::optional<double> durationFromText(std::string_view text);

/// The durations that `durationFromText` reads, in the words of messages.
inline constexpr std::string_view acceptedDurations =
    "duration from 1 second to 366 days, such as 25m or 1h30m";
static_assert(shortestDuration == 1 && longestDuration == 366.0 * 86'400);

/// "25 min", "1 h 30 min", "45 s", "2 d".
std::string durationText(double seconds);

/// The same as it is typed: "1h30m". `durationFromText` reads it.
std::string durationAsTyped(double seconds);

/// In hours and minutes only, for sums: "412 h 30 min", "0 min".
std::string hoursText(double seconds);

}  // namespace quillmere::base
