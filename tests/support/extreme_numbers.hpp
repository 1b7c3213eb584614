// Numbers at the ends of their types.
#pragma once

#include <cstdint>
#include <limits>

namespace quillmere::test {

inline constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
inline constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double smallest = std::numeric_limits<double>::denorm_min();  ///< above zero

}  // namespace quillmere::test
