// How every operation of the engine begins and ends.
#pragma once

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

namespace quillmere {

/// Throws `invalidTransition` unless `condition` holds.
inline void require(bool condition)
{
    if (!condition) {
        throw WorkflowError(WorkflowError::invalidTransition);
    }
}

/// Begins an operation: throws `invalidTransition` unless the step is possible.
inline void require(const QuillmereState& state, Step step) { require(isPossible(step, state)); }

/// Ends an operation that succeeds: its last write, and the only place that sets the workflow state.
inline void finish(QuillmereState& state, Step step, Instant now) noexcept
{
    state.workflowState = transition(step).result.value_or(state.workflowState);
    state.updatedAt = now;
}

/// Throws `invalidDuration` unless both durations and the cycle count are above zero. A duration that is
/// not a number fails.
inline void requireWorkable(const Block& block)
{
    const bool workable =
        block.focusDurationSeconds > 0 && block.breakDurationSeconds > 0 && block.cycleCount >= 1;
    if (!workable) {
        throw WorkflowError(WorkflowError::invalidDuration);
    }
}

}  // namespace quillmere
