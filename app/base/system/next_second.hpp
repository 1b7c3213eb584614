// When a clock on the screen changes.
#pragma once

#include <quillmere/records/instant.hpp>

#include <algorithm>
#include <cmath>

namespace quillmere::base {

/// Milliseconds until a clock that changes every `period` seconds changes next; at least 1. A reading so far
/// from 1970 that a double has no fractions of it waits no longer either.
inline int millisecondsToNextMultiple(Instant now, double period)
{
    const double periods = now.secondsSince1970() / period;
    const double left = (std::floor(periods) + 1 - periods) * period;
    return static_cast<int>(std::ceil(std::clamp(left, 0.001, period) * 1'000));
}

/// Milliseconds until the clock shows the next second, 1 to 1000.
inline int millisecondsToNextSecond(Instant now) { return millisecondsToNextMultiple(now, 1); }

/// Milliseconds until the clock shows the next minute, 1 to 60,000.
inline int millisecondsToNextMinute(Instant now)
{
    constexpr double minute = 60;
    return millisecondsToNextMultiple(now, minute);
}

}  // namespace quillmere::base
