#include "amendments/back_out.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/standing_block.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/json/date_text.hpp>

namespace quillmere::amendments {
namespace {

/// Arms the start. Clears the mark of an earlier start too, with which the engine would never start it.
void waitFor(QuillmereState& state, Instant start, Instant now)
{
    state.currentBlock->plannedStart = start;
    state.currentBlock->scheduledStartTriggeredAt.reset();
    state.workflowState = WorkflowState::idle;
    state.updatedAt = now;
}

void startNow(QuillmereState& state, Instant now)
{
    state.workflowState = WorkflowState::idle;
    WorkflowEngine().startScheduledBlockNow(state, now);
}

void requireToCome(Instant start, Instant now)
{
    if (!(start > now) || !json::hasDateText(start)) {
        throw Refusal("Another start of the block has to lie ahead. Possible too: start it now, or drop it.");
    }
}

void resolve(QuillmereState& state, const PassedStart& choice, Instant now)
{
    if (const auto* const other = std::get_if<StartAt>(&choice)) {
        requireToCome(other->start, now);
        waitFor(state, other->start, now);
    } else if (std::holds_alternative<StartNow>(choice)) {
        startNow(state, now);
    } else {
        leaveBlock(state, now);
    }
}

}  // namespace

void backOut(QuillmereState& state, const std::optional<PassedStart>& choice, Instant now)
{
    if (!isPossible(Kind::backOut, state)) {
        refuseHere("No block is being planned.");
    }
    const bool wasScheduled = state.currentBlock && state.currentBlock->plannedStart;
    if (!wasScheduled) {
        leaveBlock(state, now);
    } else if (const Instant start = *state.currentBlock->plannedStart; start > now) {
        waitFor(state, start, now);
    } else if (choice) {
        resolve(state, *choice, now);
    } else {
        throw Refusal(
            "The start of the scheduled block has passed while it was edited. "
            "Possible: start it now, give it another time, or drop it.");
    }
}

}  // namespace quillmere::amendments
