// Planning, starting and finishing a block.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <type_traits>
#include <utility>

namespace quillmere {

// Operations move their arguments into the state after the last step that can fail.
static_assert(std::is_nothrow_move_assignable_v<std::optional<Block>>);
static_assert(std::is_nothrow_move_assignable_v<std::optional<BlockReview>>);
static_assert(std::is_nothrow_move_constructible_v<Block>);

void WorkflowEngine::beginBlockPlanning(QuillmereState& state, Instant now) const
{
    require(state, Step::beginBlockPlanning);
    finish(state, Step::beginBlockPlanning, now);
}

void WorkflowEngine::startBlock(QuillmereState& state, Block block, Instant now) const
{
    require(state, Step::startBlock);
    requireWorkable(block);
    state.currentBlock = std::move(block);
    state.plannedNextSession.reset();
    finish(state, Step::startBlock, now);
}

void WorkflowEngine::completeBlockReview(QuillmereState& state, BlockReview review, Instant now) const
{
    require(state, Step::completeBlockReview);
    // insert allocates before it moves the block, so a failure here loses nothing.
    state.blockHistory.insert(state.blockHistory.begin(), std::move(*state.currentBlock));
    Block& finished = state.blockHistory.front();
    finished.reflection = std::move(review);
    finished.completedAt = now;
    state.currentBlock.reset();
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
    finish(state, Step::completeBlockReview, now);
}

}  // namespace quillmere
