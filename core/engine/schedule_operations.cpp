// Blocks that wait for a planned start.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere {

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
    finish(state, Step::editScheduledBlock, now);
}

void WorkflowEngine::cancelScheduledBlock(QuillmereState& state, Instant now) const
{
    require(state, Step::cancelScheduledBlock);
    state.currentBlock.reset();
    state.plannedNextSession.reset();
    finish(state, Step::cancelScheduledBlock, now);
}

void WorkflowEngine::startScheduledBlockNow(QuillmereState& state, Instant now) const
{
    require(state, Step::startScheduledBlockNow);
    state.currentBlock->plannedStart.reset();
    state.currentBlock->scheduledStartTriggeredAt = now;
    state.plannedNextSession.reset();
    finish(state, Step::startScheduledBlockNow, now);
}

bool WorkflowEngine::evaluateSchedule(QuillmereState& state, Instant now) const
{
    if (!isPossible(Step::evaluateSchedule, state) || !(*state.currentBlock->plannedStart <= now)) {
        return false;
    }
    state.currentBlock->scheduledStartTriggeredAt = now;
    finish(state, Step::evaluateSchedule, now);
    return true;
}

}  // namespace quillmere
