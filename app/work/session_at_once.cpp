#include "work/session_at_once.hpp"

#include "amendments/change_length.hpp"
#include "amendments/refusal.hpp"
#include "base/text/local_time.hpp"
#include "config/new_block.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere::work {
namespace {

void requireNoScheduledBlock(const QuillmereState& state, const base::SeenFrom& here)
{
    if (isPossible(Step::startScheduledBlockNow, state)) {
        throw amendments::Refusal("A block is scheduled for " +
                                  base::localTextSeenFrom(here, *state.currentBlock->plannedStart) +
                                  ". Possible: start, which begins it now, or cancel, which discards it.");
    }
}

/// Begins a block for the session, which then serves its outcome.
void beginBlockFor(SessionPlan& plan, std::optional<double> seconds, const config::Values& values,
                   QuillmereState& state, Instant now)
{
    Block block = config::newBlock(values, now);
    block.focusDurationSeconds = seconds.value_or(block.focusDurationSeconds);
    block.cycleCount = 1;
    block.outcomes.front().title = plan.intendedOutcome;
    plan.blockOutcomeID = block.outcomes.front().id;
    WorkflowEngine().beginBlockPlanning(state, now);
    WorkflowEngine().startBlock(state, std::move(block), now);
}

}  // namespace

void startAtOnce(QuillmereState& state, SessionPlan plan, std::optional<double> seconds,
                 const config::Values& values, Instant now)
{
    requireNoScheduledBlock(state, {now, values.hours});
    if (state.workflowState == WorkflowState::idle) {
        beginBlockFor(plan, seconds, values, state, now);
    }
    WorkflowEngine().startFocus(state, std::move(plan), now);
    const double usual = state.currentBlock->focusDurationSeconds;
    if (seconds && *seconds != usual) {
        amendments::changeLength(state, *seconds - usual, now);
    }
}

}  // namespace quillmere::work
