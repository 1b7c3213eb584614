#include "amendments/forgot_to_end.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>

namespace quillmere::amendments {
namespace {

void requirePossibleEnd(Instant end, const WorkSession& session, Instant now)
{
    const Instant earliest = std::max(earliestEnd(session), session.pausedAt.value_or(session.startedAt));
    if (end >= earliest && end <= now) {
        return;
    }
    const std::string pause = session.pausedAt ? ", not before the running pause" : "";
    const std::string reason = "The session cannot have ended then: not before its start plus its pauses" +
                               pause + ", and not after now. Of finished pauses only the sum is known.";
    throw Refusal(reason, timesBetween(earliest, now));
}

}  // namespace

void forgotToEnd(QuillmereState& state, Instant end, Instant now)
{
    if (!isPossible(Kind::forgotToEnd, state)) {
        refuseHere("No session is running, and none waits for its review.");
    }
    WorkSession& session = state.currentBlock->sessions.back();
    requirePossibleEnd(end, session, now);
    if (state.workflowState == WorkflowState::focusing) {
        WorkflowEngine().endFocus(state, end);
    } else {
        session.endedAt = end;
    }
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
