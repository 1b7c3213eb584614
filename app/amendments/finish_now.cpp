#include "amendments/finish_now.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/standing_block.hpp"

#include <utility>

namespace quillmere::amendments {
namespace {

void leadToReviewOfBlock(QuillmereState& state, Instant now) noexcept
{
    clearBetweenSessions(state);
    state.workflowState = WorkflowState::blockReview;
    state.updatedAt = now;
}

}  // namespace

void finishNow(QuillmereState& state, Instant now)
{
    if (!isPossible(Kind::finishNow, state)) {
        refuseHere("A block is finished between its sessions, or with the review of one.");
    }
    leadToReviewOfBlock(state, now);
}

void finishNow(QuillmereState& state, SessionReview review, Instant now)
{
    if (!isPossible(Kind::finishWithReview, state)) {
        refuseHere("No session waits for its review.");
    }
    state.currentBlock->sessions.back().review = std::move(review);
    leadToReviewOfBlock(state, now);
}

}  // namespace quillmere::amendments
