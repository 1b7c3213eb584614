// The limits of the numbers that an amendment may leave in a state.
#pragma once

#include <cstdint>

namespace quillmere::amendments {

// The same as for planning a block, and for loading a file; a test compares them.
inline constexpr double shortestDuration = 1;                  ///< seconds
inline constexpr double longestDuration = 366.0 * 86'400;      ///< seconds
inline constexpr double longestSum = 1'000 * longestDuration;  ///< seconds, of pauses
inline constexpr std::int64_t mostCycles = 1'000;

}  // namespace quillmere::amendments
