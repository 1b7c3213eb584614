#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>

namespace quillmere::workspace {
namespace {

/// The instant at which the running timer reached zero; `now` while it has not. Never before the last change
/// of the state: at that change, the timer had not been evaluated as run out. A last change in the future was
/// made before the clock was set back, and says nothing about the present clock.
Instant runOutInstant(const QuillmereState& state, Instant now)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    if (!timer || timer->remainingSeconds > 0) {
        return now;
    }
    const WorkSession* session = state.currentSession();
    const Instant reading = timer->isPaused ? *session->pausedAt : now;
    const Instant zero = reading + static_cast<double>(timer->remainingSeconds);
    return std::min(state.updatedAt <= now ? std::max(zero, state.updatedAt) : zero, now);
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
