// Two machines whose states are merged.
#pragma once

#include "merge/merge.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include "support/sample_states.hpp"

namespace quillmere::test {

/// Merges in both orders, and each side into the result again. Fails the test unless all are the same.
merge::MergeResult mergedBothWays(const QuillmereState& a, const QuillmereState& b);

/// `state` after `change(state)`.
template <class Change>
QuillmereState with(QuillmereState state, const Change& change)
{
    change(state);
    return state;
}

/// A state whose current block is another than that of `stateIn`.
QuillmereState atAnotherBlock(WorkflowState workflowState);

/// A finished block with this many sessions.
Block finishedBlock(unsigned number, Instant completedAt, std::int64_t sessionCount = 1);

}  // namespace quillmere::test
