// The frame of every operation.
#pragma once

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

namespace quillmere {

/// Opens an operation: throws `invalidTransition` unless the step may be taken from here.
inline void require(const QuillmereState& state, Step step)
{
    const auto accepted = transition(step).accepts;
    if (accepted && state.workflowState != *accepted) {
        throw WorkflowError(WorkflowError::invalidTransition);
    }
}

/// Throws `invalidTransition` unless `condition` holds.
inline void require(bool condition)
{
    if (!condition) {
        throw WorkflowError(WorkflowError::invalidTransition);
    }
}

/// Ends an operation: the only place that moves the workflow, and the last write of every success.
inline void finish(QuillmereState& state, Step step, Instant now) noexcept
{
    state.workflowState = transition(step).result.value_or(state.workflowState);
    state.updatedAt = now;
}

/// Throws `invalidDuration` unless the block can be worked through. A duration that is not a number
/// fails.
inline void requireWorkable(const Block& block)
{
    const bool workable =
        block.focusDurationSeconds > 0 && block.breakDurationSeconds > 0 && block.cycleCount >= 1;
    if (!workable) {
        throw WorkflowError(WorkflowError::invalidDuration);
    }
}

}  // namespace quillmere
