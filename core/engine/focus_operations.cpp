// Focus sessions: started, paused, resumed, ended, reviewed.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <iterator>
#include <utility>

namespace quillmere {
namespace {

static_assert(std::is_nothrow_move_assignable_v<std::optional<SessionPlan>>);
static_assert(std::is_nothrow_move_assignable_v<std::optional<SessionReview>>);
static_assert(std::is_nothrow_move_constructible_v<WorkSession>);

void requireRatings(const SessionPlan& plan)
{
    const auto inRange = [](std::int64_t rating) { return rating >= 1 && rating <= 5; };
    if (!inRange(plan.energy) || !inRange(plan.morale)) {
        throw WorkflowError(WorkflowError::ratingOutOfRange);
    }
}

/// The session that the operation is about, which the guard of its step has found.
WorkSession& currentSession(QuillmereState& state) { return state.currentBlock->sessions.back(); }

/// Adds the running pause to the completed ones. A pause of negative length, which a clock that was set back
/// makes, counts as none, and so does a length that is not a number.
void closePause(WorkSession& session, Instant now) noexcept
{
    const double pausedSeconds = now - *session.pausedAt;
    session.accumulatedPausedSeconds += pausedSeconds > 0 ? pausedSeconds : 0;
    session.pausedAt.reset();
}

}  // namespace

void WorkflowEngine::startFocus(QuillmereState& state, std::optional<SessionPlan> plan, Instant now) const
{
    require(state, Step::startFocus);
    if (!plan) {
        plan = state.plannedNextSession;
    }
    if (!plan) {
        throw WorkflowError(WorkflowError::missingSessionPlan);
    }
    requireRatings(*plan);

    Block& block = *state.currentBlock;
    block.sessions.push_back({
        .id = Identifier::random(),
        .number = std::ssize(block.sessions) + 1,
        .plan = *std::move(plan),
        .startedAt = now,
        .plannedDurationSeconds = block.focusDurationSeconds,
        .pausedAt = std::nullopt,
        .accumulatedPausedSeconds = 0,
        .endedAt = std::nullopt,
        .review = std::nullopt,
    });
    state.plannedNextSession.reset();
    finish(state, Step::startFocus, now);
}

void WorkflowEngine::pauseFocus(QuillmereState& state, Instant now) const
{
    require(state, Step::pauseFocus);
    currentSession(state).pausedAt = now;
    finish(state, Step::pauseFocus, now);
}

void WorkflowEngine::resumeFocus(QuillmereState& state, Instant now) const
{
    require(state, Step::resumeFocus);
    closePause(currentSession(state), now);
    finish(state, Step::resumeFocus, now);
}

void WorkflowEngine::endFocus(QuillmereState& state, Instant now) const
{
    require(state, Step::endFocus);
    WorkSession& session = currentSession(state);
    if (session.pausedAt) {
        closePause(session, now);
    }
    session.endedAt = now;
    finish(state, Step::endFocus, now);
}

void WorkflowEngine::saveReviewAndStartBreak(QuillmereState& state, SessionReview review,
                                             std::optional<SessionPlan> nextPlan, Instant now) const
{
    const bool isLast = isPossible(Step::saveLastReview, state);
    const Step step = isLast ? Step::saveLastReview : Step::saveReviewAndStartBreak;
    require(state, step);
    if (!isLast && !nextPlan) {
        throw WorkflowError(WorkflowError::nextSessionPlanRequired);
    }
    if (nextPlan) {
        requireRatings(*nextPlan);
    }

    currentSession(state).review = std::move(review);
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
    if (isLast) {
        state.plannedNextSession.reset();
        state.breakStartedAt.reset();
    } else {
        state.plannedNextSession = std::move(nextPlan);
        state.breakStartedAt = now;
    }
    finish(state, step, now);
}

}  // namespace quillmere
