// The review of a focus session, and the break or the block's review that follows it.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <string>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// `sessionReview` after session `number` of 3.
QuillmereState afterSession(std::int64_t number)
{
    QuillmereState state = crowdedStateIn(sessionReview);
    state.currentBlock = blockInWork(1, number);
    state.currentBlock->sessions.back().endedAt = moment + 1500;
    return state;
}

auto savingWith(std::optional<SessionPlan> nextPlan)
{
    return [nextPlan](QuillmereState& state) {
        engine.saveReviewAndStartBreak(state, sampleReview(9), nextPlan, now);
    };
}

TEST(SaveReviewAndStartBreak, whileCyclesRemainKeepsReviewAndPlanAndStartsTheBreak)
{
    QuillmereState state = afterSession(1);
    QuillmereState expected = state;
    expected.currentBlock->sessions.back().review = sampleReview(9);
    expected.plannedNextSession = samplePlan(9);
    expected.breakStartedAt = now;
    expected.breakExtensionSeconds = 0;
    expected.breakEndNotifiedAt.reset();
    expected.workflowState = breaking;
    expected.updatedAt = now;
    savingWith(samplePlan(9))(state);
    EXPECT_TRUE(isExactly(state, expected));
}

/// The expected state after the last session: without a break and without a plan.
QuillmereState movedToBlockReview(QuillmereState state)
{
    state.currentBlock->sessions.back().review = sampleReview(9);
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt.reset();
    state.workflowState = blockReview;
    state.updatedAt = now;
    return state;
}

TEST(SaveReviewAndStartBreak, afterTheLastCycleMovesToTheBlockReviewWithoutABreak)
{
    QuillmereState state = afterSession(3);
    const QuillmereState expected = movedToBlockReview(state);
    savingWith(std::nullopt)(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(SaveReviewAndStartBreak, afterTheLastCycleDropsANextPlan)
{
    QuillmereState state = afterSession(3);
    const QuillmereState expected = movedToBlockReview(state);
    savingWith(samplePlan(9))(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(SaveReviewAndStartBreak, afterMoreSessionsThanCyclesMovesToTheBlockReviewToo)
{
    for (const std::int64_t cycleCount : {2, 0, -1}) {
        SCOPED_TRACE(cycleCount);
        QuillmereState state = afterSession(3);
        state.currentBlock->cycleCount = cycleCount;
        const QuillmereState expected = movedToBlockReview(state);
        savingWith(std::nullopt)(state);
        EXPECT_TRUE(isExactly(state, expected));
    }
}

TEST(SaveReviewAndStartBreak, needsTheNextPlanWhileCyclesRemain)
{
    for (const std::int64_t number : {1, 2}) {
        SCOPED_TRACE(number);
        EXPECT_TRUE(isRefused(WorkflowError::nextSessionPlanRequired, afterSession(number),
                              savingWith(std::nullopt)));
    }
}

TEST(SaveReviewAndStartBreak, doesNotTakeThePlanSavedEarlierForTheNextPlan)
{
    QuillmereState state = afterSession(1);
    state.plannedNextSession = samplePlan(2);
    EXPECT_TRUE(isRefused(WorkflowError::nextSessionPlanRequired, state, savingWith(std::nullopt)));
}

TEST(SaveReviewAndStartBreak, refusesANextPlanWithRatingsOutsideOneToFive)
{
    for (const auto& [energy, morale] : badRatings) {
        SCOPED_TRACE(std::to_string(energy) + ", " + std::to_string(morale));
        EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, afterSession(1),
                              savingWith(planRated(energy, morale))));
    }
}

TEST(SaveReviewAndStartBreak, checksTheRatingsOfANextPlanThatItWouldDrop)
{
    for (const auto& [energy, morale] : badRatings) {
        SCOPED_TRACE(std::to_string(energy) + ", " + std::to_string(morale));
        EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, afterSession(3),
                              savingWith(planRated(energy, morale))));
    }
}

TEST(SaveReviewAndStartBreak, acceptsTheLowestAndTheHighestRatings)
{
    for (const auto& [energy, morale] : std::to_array<std::array<std::int64_t, 2>>({{1, 5}, {5, 1}})) {
        QuillmereState state = afterSession(1);
        savingWith(planRated(energy, morale))(state);
        EXPECT_EQ(state.plannedNextSession, planRated(energy, morale));
    }
}

TEST(SaveReviewAndStartBreak, checksStateBlockAndSessionBeforeThePlan)
{
    QuillmereState wrongState = afterSession(1);
    wrongState.workflowState = focusing;
    QuillmereState withoutBlock = afterSession(1);
    withoutBlock.currentBlock.reset();
    QuillmereState withoutSessions = afterSession(1);
    withoutSessions.currentBlock->sessions.clear();
    for (const QuillmereState& state : {wrongState, withoutBlock, withoutSessions}) {
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, savingWith(samplePlan(9))));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, savingWith(std::nullopt)));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, savingWith(planRated(0, 0))));
    }
}

TEST(SaveReviewAndStartBreak, reviewsTheLastSessionOnly)
{
    QuillmereState state = afterSession(2);
    const WorkSession earlier = state.currentBlock->sessions.front();
    savingWith(samplePlan(9))(state);
    EXPECT_EQ(state.currentBlock->sessions.front(), earlier);
    EXPECT_EQ(state.currentBlock->sessions.back().review, sampleReview(9));
}

TEST(SaveReviewAndStartBreak, replacesAReviewThatWasThereBefore)
{
    QuillmereState state = afterSession(1);
    state.currentBlock->sessions.back().review = sampleReview(4);
    savingWith(samplePlan(9))(state);
    EXPECT_EQ(state.currentBlock->sessions.back().review, sampleReview(9));
}

TEST(SaveReviewAndStartBreak, doesNotAskWhetherTheSessionWasEnded)
{
    QuillmereState state = afterSession(1);
    state.currentBlock->sessions.back().endedAt.reset();
    savingWith(samplePlan(9))(state);
    EXPECT_EQ(rawValue(state.workflowState), "breaking");
    EXPECT_EQ(state.currentBlock->sessions.back().endedAt, std::nullopt);
}

TEST(SaveReviewAndStartBreak, startsEveryBreakWithoutTheExtensionOfTheLast)
{
    QuillmereState state = stateIn(breaking);
    engine.extendBreak(state, 300, now);
    engine.endBreak(state, now);
    engine.startFocus(state, std::nullopt, now);
    engine.endFocus(state, now);
    savingWith(samplePlan(3))(state);
    EXPECT_EQ(state.breakExtensionSeconds, 0);
}

}  // namespace
}  // namespace quillmere::test
