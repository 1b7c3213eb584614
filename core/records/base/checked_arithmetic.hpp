// Whole-number arithmetic on values that a file or a caller supplies. An overflow stops the program:
// a wrapped or clamped number of seconds would be shown as if it were true.
#pragma once

#include <cstdint>

namespace quillmere {

/// `minuend` - `subtrahend`; an overflow is a fatal error.
std::int64_t checkedDifference(std::int64_t minuend, std::int64_t subtrahend);

/// The absolute value; the most negative number has none, which is a fatal error.
std::int64_t checkedMagnitude(std::int64_t value);

/// `seconds` rounded down (toward the past) to whole seconds. The one place where a duration becomes
/// an integer. A value that is not finite, or beyond 64 bits, is a fatal error.
std::int64_t wholeSeconds(double seconds);

}  // namespace quillmere
