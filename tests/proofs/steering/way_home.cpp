#include "proofs/steering/way_home.hpp"

#include "amendments/back_out.hpp"
#include "amendments/drop.hpp"
#include "amendments/finish_now.hpp"
#include "amendments/possible.hpp"
#include "amendments/reset.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

void leadHome(QuillmereState& state, Instant now)
{
    using namespace amendments;
    if (amendments::isPossible(Kind::reset, state)) {
        reset(state, now);
    } else if (amendments::isPossible(Kind::backOut, state)) {
        backOut(state, DropBlock{}, now);
    } else if (amendments::isPossible(Kind::drop, state)) {
        drop(state, now);
    } else if (amendments::isPossible(Kind::finishNow, state)) {
        finishNow(state, now);
    } else if (amendments::isPossible(Kind::finishWithReview, state)) {
        finishNow(state, sampleReview(1), now);
    } else if (quillmere::isPossible(Step::endFocus, state)) {
        WorkflowEngine().endFocus(state, now);
    } else if (quillmere::isPossible(Step::endBreak, state)) {
        WorkflowEngine().endBreak(state, now);
    } else if (quillmere::isPossible(Step::cancelScheduledBlock, state)) {
        WorkflowEngine().cancelScheduledBlock(state, now);
    } else {
        WorkflowEngine().completeBlockReview(state, sampleReflection(), now);
    }
}

}  // namespace

int stepsHome(QuillmereState state, Instant now)
{
    int count = 0;
    while ((state.workflowState != WorkflowState::idle || state.currentBlock) && count < 10) {
        leadHome(state, now);
        ++count;
    }
    return count;
}

}  // namespace quillmere::test
