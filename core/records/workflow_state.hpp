// Where the person stands in the workflow.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

namespace quillmere {

enum class WorkflowState {
    idle,             ///< no block in hand, or a scheduled one that waits
    blockPlanning,    ///< a block is being planned
    sessionPlanning,  ///< the plan of the next focus session is being written
    focusing,         ///< a focus session runs, or is paused
    sessionReview,    ///< the review of the session just ended is being written
    breaking,         ///< a break runs between two sessions
    blockReview,      ///< the block's closing reflection is being written
    complete,         ///< kept for the data's sake: no operation produces it
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
