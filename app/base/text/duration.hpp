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

/// "25 min", "1 h 30 min", "45 s".
std::string durationText(double seconds);

}  // namespace quillmere::base
