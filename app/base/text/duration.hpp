// Durations as people write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::base {

// Bounds in seconds. The engine accepts every positive duration, also ones that no timer can count; this
// program neither stores such a duration nor accepts one from a file.
inline constexpr double shortestDuration = 1;
inline constexpr double longestDuration = 366.0 * 86'400;

/// Seconds of "25", "25m", "1h30m", "90s", "2d": whole numbers with units in falling order, a bare
/// number in minutes. Absent for any other text, and for less than a second or more than 366 days.
std::optional<double> durationFromText(std::string_view text);

/// "25 min", "1 h 30 min", "45 s".
std::string durationText(double seconds);

}  // namespace quillmere::base
