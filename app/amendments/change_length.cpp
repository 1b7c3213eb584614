#include "amendments/change_length.hpp"

#include "amendments/limits.hpp"
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

namespace quillmere::amendments {

void changeLength(QuillmereState& state, double by, Instant now)
{
    if (!isPossible(Kind::changeLength, state)) {
        refuseHere("No focus session is running.");
    }
    WorkSession& session = state.currentBlock->sessions.back();
    const double length = session.plannedDurationSeconds + by;
    const double shortest = static_cast<double>(usedSeconds(session, now) + 1);
    if (by == 0 || !isWithin(length, shortest, longestDuration)) {
        throw Refusal(
            "The session cannot have this length: it can be planned for longer than what is used, and "
            "for 366 days at most.",
            lengthsBetween(shortest, longestDuration));
    }
    session.plannedDurationSeconds = length;
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
