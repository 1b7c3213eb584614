// Blocks that wait for their time.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere {
namespace {

bool hasPlannedStart(const std::optional<Block>& block) { return block && block->plannedStart; }

}  // namespace

void WorkflowEngine::scheduleBlock(QuillmereState& state, Block block, Instant now) const
{
    require(state, Step::scheduleBlock);
    require(block.plannedStart.has_value());
    requireWorkable(block);
    state.currentBlock = std::move(block);
    finish(state, Step::scheduleBlock, now);
}

void WorkflowEngine::editScheduledBlock(QuillmereState& state, Instant now) const
{
    require(state, Step::editScheduledBlock);
    require(hasPlannedStart(state.currentBlock));
    finish(state, Step::editScheduledBlock, now);
}

void WorkflowEngine::cancelScheduledBlock(QuillmereState& state, Instant now) const
{
    require(state, Step::cancelScheduledBlock);
    require(hasPlannedStart(state.currentBlock));
    state.currentBlock.reset();
    state.plannedNextSession.reset();
    finish(state, Step::cancelScheduledBlock, now);
}

void WorkflowEngine::startScheduledBlockNow(QuillmereState& state, Instant now) const
{
    require(state, Step::startScheduledBlockNow);
    require(hasPlannedStart(state.currentBlock));
    state.currentBlock->plannedStart.reset();
    state.currentBlock->scheduledStartTriggeredAt = now;
    state.plannedNextSession.reset();
    finish(state, Step::startScheduledBlockNow, now);
}

bool WorkflowEngine::evaluateSchedule(QuillmereState& state, Instant now) const
{
    const bool waits = state.workflowState == transition(Step::evaluateSchedule).accepts &&
                       hasPlannedStart(state.currentBlock);
    if (!waits) {
        return false;
    }
    Block& block = *state.currentBlock;
    if (!(*block.plannedStart <= now) || block.scheduledStartTriggeredAt) {
        return false;
    }
    block.scheduledStartTriggeredAt = now;
    finish(state, Step::evaluateSchedule, now);
    return true;
}

}  // namespace quillmere
