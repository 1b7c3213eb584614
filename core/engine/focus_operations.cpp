// Focus sessions: planned, timed, reviewed.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <iterator>
#include <utility>

namespace quillmere {
namespace {

static_assert(std::is_nothrow_move_assignable_v<std::optional<SessionPlan>>);
static_assert(std::is_nothrow_move_assignable_v<std::optional<SessionReview>>);
static_assert(std::is_nothrow_move_constructible_v<WorkSession>);

bool cyclesRemain(const Block& block) { return std::ssize(block.sessions) < block.cycleCount; }

void requireRatings(const SessionPlan& plan)
{
    const auto inRange = [](std::int64_t rating) { return rating >= 1 && rating <= 5; };
    if (!inRange(plan.energy) || !inRange(plan.morale)) {
        throw WorkflowError(WorkflowError::ratingOutOfRange);
    }
}

/// The session that the operation is about; throws `invalidTransition` when there is none.
WorkSession& requireCurrentSession(QuillmereState& state)
{
    require(state.currentSession() != nullptr);
    return state.currentBlock->sessions.back();
}

/// Adds a running pause to the completed ones. One that would be negative, because the clock was set
/// back, or is not a number counts as none.
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
    require(state.currentBlock.has_value());
    Block& block = *state.currentBlock;
    require(cyclesRemain(block));
    if (!plan) {
        plan = state.plannedNextSession;
    }
    if (!plan) {
        throw WorkflowError(WorkflowError::missingSessionPlan);
    }
    requireRatings(*plan);

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
    WorkSession& session = requireCurrentSession(state);
    require(!session.pausedAt);
    session.pausedAt = now;
    finish(state, Step::pauseFocus, now);
}

void WorkflowEngine::resumeFocus(QuillmereState& state, Instant now) const
{
    require(state, Step::resumeFocus);
    WorkSession& session = requireCurrentSession(state);
    require(session.pausedAt.has_value());
    closePause(session, now);
    finish(state, Step::resumeFocus, now);
}

void WorkflowEngine::endFocus(QuillmereState& state, Instant now) const
{
    require(state, Step::endFocus);
    WorkSession& session = requireCurrentSession(state);
    if (session.pausedAt) {
        closePause(session, now);
    }
    session.endedAt = now;
    finish(state, Step::endFocus, now);
}

void WorkflowEngine::saveReviewAndStartBreak(QuillmereState& state, SessionReview review,
                                             std::optional<SessionPlan> nextPlan, Instant now) const
{
    require(state, Step::saveReviewAndStartBreak);
    WorkSession& session = requireCurrentSession(state);
    const bool moreCycles = cyclesRemain(*state.currentBlock);
    if (moreCycles && !nextPlan) {
        throw WorkflowError(WorkflowError::nextSessionPlanRequired);
    }
    if (nextPlan) {
        requireRatings(*nextPlan);
    }

    session.review = std::move(review);
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
    if (moreCycles) {
        state.plannedNextSession = std::move(nextPlan);
        state.breakStartedAt = now;
        finish(state, Step::saveReviewAndStartBreak, now);
    } else {
        state.plannedNextSession.reset();
        state.breakStartedAt.reset();
        finish(state, Step::saveLastReview, now);
    }
}

}  // namespace quillmere
