// The limits of the numbers that this program accepts: from a person, and in a file.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <limits>

namespace quillmere::base {

// The engine accepts any duration above zero, but its timers count whole seconds in 64 bits and stop the
// program beyond that. No such duration gets into a state through this program, and none is accepted from a
// file.
inline constexpr double shortestDuration = 1;              ///< seconds
inline constexpr double longestDuration = 366.0 * 86'400;  ///< seconds

/// Seconds. For the sum of pauses and the sum of a break's extensions, which can grow with every command. An
/// instant that is so much later can still be written as a date.
inline constexpr double longestSum = 1'000 * longestDuration;

inline constexpr std::int64_t mostCycles = 1'000;

struct Bounds {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();

    /// False for NaN.
    constexpr bool contain(double value) const { return value >= least && value <= most; }
};

/// The numbers that a field may have in a file.
template <auto member>
inline constexpr Bounds boundsOf = {};
template <>
inline constexpr Bounds boundsOf<&Block::focusDurationSeconds> = {shortestDuration, longestDuration};
template <>
inline constexpr Bounds boundsOf<&Block::breakDurationSeconds> = {shortestDuration, longestDuration};
template <>
inline constexpr Bounds boundsOf<&Block::cycleCount> = {1, static_cast<double>(mostCycles)};
template <>
inline constexpr Bounds boundsOf<&WorkSession::plannedDurationSeconds> = {shortestDuration, longestDuration};
template <>
inline constexpr Bounds boundsOf<&WorkSession::accumulatedPausedSeconds> = {0, longestSum};
template <>
inline constexpr Bounds boundsOf<&QuillmereState::breakExtensionSeconds> = {0, longestSum};

}  // namespace quillmere::base
