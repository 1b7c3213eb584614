// Breaks, and the evaluation of the timer.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere {

void WorkflowEngine::extendBreak(QuillmereState& state, double by, Instant now) const
{
    require(state, Step::extendBreak);
    require(by > 0);
    state.breakExtensionSeconds += by;
    state.breakEndNotifiedAt.reset();
    finish(state, Step::extendBreak, now);
}

void WorkflowEngine::endBreak(QuillmereState& state, Instant now) const
{
    require(state, Step::endBreak);
    state.breakStartedAt.reset();
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
    finish(state, Step::endBreak, now);
}

void WorkflowEngine::skipBreak(QuillmereState& state, Instant now) const { endBreak(state, now); }

TimerTransition WorkflowEngine::evaluateTimer(QuillmereState& state, Instant now) const
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    if (!timer || !timer->hasRunOut()) {
        return TimerTransition::noChange;
    }
    switch (timer->kind) {
        case TimerKind::focus: endFocus(state, now); return TimerTransition::focusEnded;
        case TimerKind::breakTime: break;
    }
    if (!isPossible(Step::announceBreakEnd, state)) {
        return TimerTransition::noChange;
    }
    state.breakEndNotifiedAt = now;
    finish(state, Step::announceBreakEnd, now);
    return TimerTransition::breakEnded;
}

}  // namespace quillmere
