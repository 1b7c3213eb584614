#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

#include <algorithm>

namespace quillmere {
namespace {

TimerSnapshot snapshot(TimerKind kind, std::int64_t totalSeconds, std::int64_t countedSeconds, bool isPaused)
{
    const std::int64_t elapsed = std::max<std::int64_t>(countedSeconds, 0);
    const std::int64_t remaining = checkedDifference(totalSeconds, elapsed);
    return {
        .kind = kind,
        .elapsedSeconds = elapsed,
        .remainingSeconds = remaining,
        .displaySeconds = checkedMagnitude(remaining),
        .isOvertime = remaining < 0,
        .isPaused = isPaused,
    };
}

std::optional<TimerSnapshot> breakTimer(const QuillmereState& state, Instant at)
{
    if (!state.breakStartedAt || !state.currentBlock) {
        return std::nullopt;
    }
    const std::int64_t elapsed = wholeSeconds(at - *state.breakStartedAt);
    const std::int64_t total =
        wholeSeconds(state.currentBlock->breakDurationSeconds + state.breakExtensionSeconds);
    return snapshot(TimerKind::breakTime, total, elapsed, false);
}

TimerSnapshot focusTimer(const WorkSession& session, Instant at)
{
    // The timer of a paused session stands still at the instant of the pause.
    const Instant reference = session.pausedAt.value_or(at);
    const std::int64_t active = checkedDifference(wholeSeconds(reference - session.startedAt),
                                                  wholeSeconds(session.accumulatedPausedSeconds));
    return snapshot(TimerKind::focus, wholeSeconds(session.plannedDurationSeconds), active,
                    session.pausedAt.has_value());
}

}  // namespace

bool timeRanOut(const WorkSession& session)
{
    return session.endedAt && focusTimer(session, *session.endedAt).hasRunOut();
}

std::optional<TimerSnapshot> TimerSnapshot::derive(const QuillmereState& from, Instant at)
{
    switch (from.workflowState) {
        case WorkflowState::breaking: return breakTimer(from, at);
        case WorkflowState::focusing: {
            const WorkSession* session = from.currentSession();
            return session ? std::optional(focusTimer(*session, at)) : std::nullopt;
        }
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::sessionPlanning:
        case WorkflowState::sessionReview:
        case WorkflowState::blockReview:
        case WorkflowState::complete: break;
    }
    return std::nullopt;
}

}  // namespace quillmere
