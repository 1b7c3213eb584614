// Breaks and pauses: how long they were meant to be, and were.
#pragma once

#include "figures/look_back.hpp"

#include <cstdint>
#include <vector>

namespace quillmere::figures {

/// The time from the end of a session to the start of the next one of its block, with the review and the
/// planning in between: the records do not tell them apart.
struct TakenBreak {
    const EndedSession* next;  ///< the session after it; points into the look back
    double plannedSeconds;
    double takenSeconds;

    /// More than twice as long as planned.
    bool isOverlong() const { return takenSeconds > 2 * plannedSeconds; }
};

struct BreakFigures {
    /// Those that lie within one day, before sessions of the look back, in order.
    std::vector<TakenBreak> breaks = {};
    double plannedSeconds = 0;
    double takenSeconds = 0;
    double medianSeconds = 0;   ///< taken; the upper median, zero for no breaks
    double longestSeconds = 0;  ///< taken
    std::int64_t overlong = 0;
    std::int64_t overnight = 0;  ///< times between sessions of different days, which are no breaks
};

/// Pauses have no plan. The records have the sum of a session's pauses.
struct PauseFigures {
    std::int64_t sessions = 0;  ///< whose time is known
    std::int64_t pausedSessions = 0;
    double pausedSeconds = 0;
    double longestSeconds = 0;  ///< the greatest sum of a session
    std::int64_t overlong = 0;  ///< sessions with pauses longer than the break of their block
};

BreakFigures breaksOf(const LookBack& look);
PauseFigures pausesOf(const LookBack& look);

}  // namespace quillmere::figures
