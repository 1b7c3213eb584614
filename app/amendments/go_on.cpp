#include "amendments/go_on.hpp"

#include "amendments/limits.hpp"
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::amendments {
namespace {

/// The session as if it had not ended. None of the time is a pause when the clock was set back since.
WorkSession continued(WorkSession session, TimeSinceEnd timeSinceEnd, Instant now)
{
    const double sinceEnd = now - *session.endedAt;
    if (timeSinceEnd == TimeSinceEnd::countsAsPause && sinceEnd > 0) {
        session.accumulatedPausedSeconds += sinceEnd;
    }
    session.endedAt.reset();
    return session;
}

void requirePossibleExtension(double by, const WorkSession& session, TimeSinceEnd timeSinceEnd, Instant now)
{
    const double missing =
        static_cast<double>(usedSeconds(session, now) + 1) - session.plannedDurationSeconds;
    const double shortest = std::max(missing, shortestDuration);
    const double longest = longestDuration - session.plannedDurationSeconds;
    if (!isWithin(by, shortest, longest)) {
        throw Refusal(
            timeSinceEnd == TimeSinceEnd::countsAsFocus
                ? "The session cannot go on for that long: the time since its end counts as focus, and "
                  "366 days are the most. Possible: another length, or that time as a pause."
                : "The session cannot go on for that long: 366 days are the most. Possible: another "
                  "length.",
            lengthsBetween(shortest, longest));
    }
    if (session.accumulatedPausedSeconds > longestSum) {
        throw Refusal(
            "The time since the end is too long for a pause. Possible: that time as focus, or a "
            "review of the session as it ended.");
    }
}

}  // namespace

void goOn(QuillmereState& state, double by, TimeSinceEnd timeSinceEnd, Instant now)
{
    if (!isPossible(Kind::goOn, state)) {
        refuseHere("No session that has ended waits for its review.");
    }
    WorkSession& ended = state.currentBlock->sessions.back();
    WorkSession session = continued(ended, timeSinceEnd, now);
    requirePossibleExtension(by, session, timeSinceEnd, now);
    session.plannedDurationSeconds += by;
    ended = std::move(session);
    state.workflowState = WorkflowState::focusing;
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
