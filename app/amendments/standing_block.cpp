#include "amendments/standing_block.hpp"

#include <utility>

namespace quillmere::amendments {

bool hasBegunBlock(const QuillmereState& state)
{
    if (!state.currentBlock) {
        return false;
    }
    switch (state.workflowState) {
        case WorkflowState::sessionPlanning:
        case WorkflowState::focusing:
        case WorkflowState::sessionReview:
        case WorkflowState::breaking:
        case WorkflowState::blockReview: return true;
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::complete: break;
    }
    return false;
}

void clearBetweenSessions(QuillmereState& state) noexcept
{
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
}

void leaveBlock(QuillmereState& state, Instant now)
{
    if (state.currentBlock && !state.currentBlock->sessions.empty()) {
        Block& block = *state.currentBlock;
        state.blockHistory.reserve(state.blockHistory.size() + 1);
        block.completedAt = block.completedAt.value_or(now);
        state.blockHistory.insert(state.blockHistory.begin(), std::move(block));
    }
    state.currentBlock.reset();
    clearBetweenSessions(state);
    state.workflowState = WorkflowState::idle;
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
