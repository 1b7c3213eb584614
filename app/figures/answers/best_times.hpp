// When a person focuses best: time and completion by hour of the day and by weekday.
#pragma once

#include "figures/look_back.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace quillmere::figures {

/// An hour of the day, or a weekday. Focus counts in the hours and days in which it was spent, a session and
/// its completion where it started.
struct TimeSlot {
    double focusSeconds = 0;
    std::int64_t sessions = 0;
    Completions completions{};
};

struct BestTimes {
    std::array<TimeSlot, 24> hours{};    ///< by the hour of local clocks
    std::array<TimeSlot, 7> weekdays{};  ///< by chrono::weekday::c_encoding, from Sunday
};

/// Hours are exact where a zone changes its clocks on whole quarters of an hour of UTC, and differs from UTC
/// by such.
BestTimes bestTimesOf(const LookBack& look);

/// The index of the slot whose sessions came closest to what they were meant to reach: the greatest reached
/// share (figures::reachedShare) of the slots with at least three reviewed sessions and a twentieth of all,
/// so that a few lucky ones decide nothing; of equal ones that with more of them. Absent without any.
std::optional<std::size_t> bestOf(std::span<const TimeSlot> slots);

}  // namespace quillmere::figures
