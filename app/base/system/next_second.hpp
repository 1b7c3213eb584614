// When a clock on the screen changes.
#pragma once

#include <quillmere/records/instant.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace quillmere::base {

/// Until a clock that changes every `period` seconds changes next; at least 1 ms. Rounded up, so that a wait
/// does not end before the change. A reading so far from 1970 that a double has no fractions of it waits no
/// longer either.
inline std::chrono::milliseconds timeToNextMultiple(Instant now, double period)
{
    const double periods = now.secondsSince1970() / period;
    const double left = (std::floor(periods) + 1 - periods) * period;
    return std::chrono::ceil<std::chrono::milliseconds>(
        std::chrono::duration<double>(std::clamp(left, 0.001, period)));
}

/// Until the clock shows the next second, 1 to 1000 ms.
inline std::chrono::milliseconds timeToNextSecond(Instant now) { return timeToNextMultiple(now, 1); }

/// Until the clock shows the next minute, 1 to 60,000 ms.
inline std::chrono::milliseconds timeToNextMinute(Instant now)
{
    constexpr double minute = 60;
    return timeToNextMultiple(now, minute);
}

}  // namespace quillmere::base
