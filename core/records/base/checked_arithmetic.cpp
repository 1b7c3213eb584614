#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/records/base/fatal_error.hpp>

#include <cmath>

namespace quillmere {

std::int64_t checkedDifference(std::int64_t minuend, std::int64_t subtrahend)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(minuend, subtrahend, &difference)) {
        fatalError("quillmere: a difference of whole numbers overflows 64 bits");
    }
    return difference;
}

std::int64_t checkedMagnitude(std::int64_t value) { return value < 0 ? checkedDifference(0, value) : value; }

std::int64_t wholeSeconds(double seconds)
{
    const double floored = std::floor(seconds);
    // A comparison with NaN is false, so NaN fails this test.
    if (!(floored >= -0x1p63 && floored < 0x1p63)) {
        fatalError("quillmere: a duration is not a number of seconds that fits 64 bits");
    }
    return static_cast<std::int64_t>(floored);
}

}  // namespace quillmere
