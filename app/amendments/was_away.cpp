#include "amendments/was_away.hpp"

#include "amendments/limits.hpp"
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

#include <algorithm>

namespace quillmere::amendments {
namespace {

void requireWithinSession(Instant from, Instant to, const WorkSession& session, Instant last)
{
    if (from >= session.startedAt && from < to && to <= last) {
        return;
    }
    const std::string reason =
        session.pausedAt ? "That time has to lie between the start of the session and its running pause."
                         : "That time has to lie between the start of the session and now.";
    throw Refusal(reason, timesBetween(session.startedAt, last));
}

void requireRoom(double length, const WorkSession& session, Instant last)
{
    const double room = std::min(last - earliestEnd(session), longestSum - session.accumulatedPausedSeconds);
    if (!(length <= room)) {
        throw Refusal(
            "Together with the finished pauses, that is longer than the session has run. Possible: a shorter "
            "time.",
            lengthsBetween(0, room));
    }
}

}  // namespace

void wasAway(QuillmereState& state, Instant from, std::optional<Instant> to, Instant now)
{
    if (!isPossible(Kind::wasAway, state)) {
        refuseHere("No focus session is running.");
    }
    WorkSession& session = state.currentBlock->sessions.back();
    const Instant last = session.pausedAt.value_or(now);
    const Instant end = to.value_or(last);
    requireWithinSession(from, end, session, last);
    requireRoom(end - from, session, last);
    session.accumulatedPausedSeconds += end - from;
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
