// The states of the workflow.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

namespace quillmere {

enum class WorkflowState {
    idle,             ///< there is no block, or a scheduled block waits
    blockPlanning,    ///< a block is being planned
    sessionPlanning,  ///< the plan of the next focus session is being written
    focusing,         ///< a focus session runs, or is paused
    sessionReview,    ///< the review of the session that has ended is being written
    breaking,         ///< a break runs between two sessions
    blockReview,      ///< the reflection on the block is being written
    complete,         ///< files may have it; no operation leads to it
};

template <>
struct EnumerationTable<WorkflowState> {
    static constexpr auto rows = std::to_array<RawText<WorkflowState>>({
        {WorkflowState::idle, "idle"},
        {WorkflowState::blockPlanning, "blockPlanning"},
        {WorkflowState::sessionPlanning, "sessionPlanning"},
        {WorkflowState::focusing, "focusing"},
        {WorkflowState::sessionReview, "sessionReview"},
        {WorkflowState::breaking, "breaking"},
        {WorkflowState::blockReview, "blockReview"},
        {WorkflowState::complete, "complete"},
    });
};

}  // namespace quillmere
