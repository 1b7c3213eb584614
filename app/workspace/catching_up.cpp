#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>

namespace quillmere::workspace {
namespace {

/// The instant at which the running timer reached zero; `now` while it has not. Never before the last change
/// of the state: at that change, the timer had not been evaluated as run out.
Instant runOutInstant(const QuillmereState& state, Instant now)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    if (!timer || timer->remainingSeconds > 0) {
        return now;
    }
    const WorkSession* session = state.currentSession();
    const Instant reading = timer->isPaused ? *session->pausedAt : now;
    return std::min(std::max(reading + static_cast<double>(timer->remainingSeconds), state.updatedAt), now);
}

}  // namespace

std::vector<Event> catchUp(QuillmereState& state, Instant now)
{
    const WorkflowEngine engine;
    std::vector<Event> events;
    if (engine.evaluateSchedule(state, now)) {
        events.push_back({Event::Kind::blockStarted, now});
    }
    const Instant ranOutAt = runOutInstant(state, now);
    switch (engine.evaluateTimer(state, ranOutAt)) {
        case TimerTransition::noChange: break;
        case TimerTransition::focusEnded: events.push_back({Event::Kind::focusEnded, ranOutAt}); break;
        case TimerTransition::breakEnded: events.push_back({Event::Kind::breakEnded, ranOutAt}); break;
    }
    return events;
}

}  // namespace quillmere::workspace
