// When a clock on the screen changes.
#pragma once

#include <quillmere/records/instant.hpp>

#include <cmath>

namespace quillmere::base {

/// Milliseconds until the clock shows the next second, 1 to 1000.
inline int millisecondsToNextSecond(Instant now)
{
    const double seconds = now.secondsSince1970();
    return static_cast<int>(std::ceil((std::floor(seconds) + 1 - seconds) * 1'000));
}

/// Milliseconds until the clock shows the next minute, 1 to 60,000.
inline int millisecondsToNextMinute(Instant now)
{
    constexpr double minute = 60;
    const double minutes = now.secondsSince1970() / minute;
    return static_cast<int>(std::ceil((std::floor(minutes) + 1 - minutes) * minute * 1'000));
}

}  // namespace quillmere::base
