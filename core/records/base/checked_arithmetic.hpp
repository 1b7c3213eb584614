// Integer arithmetic on values from a file or a caller. An overflow is a fatal error: a wrapped or clamped
// number of seconds would be shown to the person as if it were right.
#pragma once

#include <cstdint>

namespace quillmere {

/// `minuend` - `subtrahend`; an overflow is a fatal error.
std::int64_t checkedDifference(std::int64_t minuend, std::int64_t subtrahend);

/// The absolute value. The most negative number has none: a fatal error.
std::int64_t checkedMagnitude(std::int64_t value);

/// `seconds` rounded down to whole seconds, toward the past. All durations become integers here. A value
/// that is not finite, or does not fit 64 bits, is a fatal error.
std::int64_t wholeSeconds(double seconds);

}  // namespace quillmere
