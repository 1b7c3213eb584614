#include "work/only_session.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <optional>
#include <utility>

namespace quillmere::work {

bool isOnlySessionInReview(const QuillmereState& state)
{
    return isPossible(Step::saveLastReview, state) && state.currentBlock->cycleCount == 1;
}

void finishOnlySession(QuillmereState& state, SessionReview review, BlockReview reflection, Instant now)
{
    if (!isOnlySessionInReview(state)) {
        throw WorkflowError(WorkflowError::invalidTransition);
    }
    WorkflowEngine().saveReviewAndStartBreak(state, std::move(review), std::nullopt, now);
    WorkflowEngine().completeBlockReview(state, std::move(reflection), now);
}

}  // namespace quillmere::work
