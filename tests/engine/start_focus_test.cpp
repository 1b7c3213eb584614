// The start of a focus session. Pause, resume and end are in focus_operations_test.cpp.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <cstdint>
#include <string>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

auto startingWith(std::optional<SessionPlan> plan)
{
    return [plan](QuillmereState& state) { engine.startFocus(state, plan, now); };
}

TEST(StartFocus, appendsASessionAndUsesUpTheSavedPlan)
{
    QuillmereState state = crowdedStateIn(sessionPlanning);
    QuillmereState expected = state;
    engine.startFocus(state, samplePlan(9), now);

    ASSERT_EQ(state.currentBlock->sessions.size(), 3U);
    expected.currentBlock->sessions.push_back({
        .id = state.currentBlock->sessions.back().id,  // a random one
        .number = 3,
        .plan = samplePlan(9),
        .startedAt = now,
        .plannedDurationSeconds = 1500,
        .pausedAt = std::nullopt,
        .accumulatedPausedSeconds = 0,
        .endedAt = std::nullopt,
        .review = std::nullopt,
    });
    expected.plannedNextSession.reset();
    expected.workflowState = focusing;
    expected.updatedAt = now;
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(StartFocus, usesTheSavedPlanWhenNoneIsGiven)
{
    QuillmereState state = stateIn(sessionPlanning);
    state.plannedNextSession = samplePlan(5);
    engine.startFocus(state, std::nullopt, now);
    EXPECT_EQ(state.currentSession()->plan, samplePlan(5));
    EXPECT_EQ(state.plannedNextSession, std::nullopt);
}

TEST(StartFocus, prefersTheGivenPlanToTheSavedOne)
{
    QuillmereState state = stateIn(sessionPlanning);
    state.plannedNextSession = samplePlan(5);
    engine.startFocus(state, samplePlan(9), now);
    EXPECT_EQ(state.currentSession()->plan, samplePlan(9));
    EXPECT_EQ(state.plannedNextSession, std::nullopt);
}

TEST(StartFocus, acceptsTheSavedPlanAsTheGivenOne)
{
    QuillmereState state = stateIn(sessionPlanning);
    state.plannedNextSession = samplePlan(5);
    engine.startFocus(state, state.plannedNextSession, now);
    EXPECT_EQ(state.currentSession()->plan, samplePlan(5));
}

TEST(StartFocus, isRefusedWithoutAnyPlan)
{
    QuillmereState state = crowdedStateIn(sessionPlanning);
    state.plannedNextSession.reset();
    EXPECT_TRUE(isRefused(WorkflowError::missingSessionPlan, state, startingWith(std::nullopt)));
}

TEST(StartFocus, refusesEnergyAndMoraleOutsideOneToFive)
{
    for (const auto& [energy, morale] : badRatings) {
        SCOPED_TRACE(std::to_string(energy) + ", " + std::to_string(morale));
        EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, crowdedStateIn(sessionPlanning),
                              startingWith(planRated(energy, morale))));
    }
}

TEST(StartFocus, acceptsEveryRatingFromOneToFive)
{
    for (std::int64_t energy = 1; energy <= 5; ++energy) {
        for (std::int64_t morale = 1; morale <= 5; ++morale) {
            QuillmereState state = stateIn(sessionPlanning);
            EXPECT_EQ(refusalOf([&] { startingWith(planRated(energy, morale))(state); }), std::nullopt);
        }
    }
}

TEST(StartFocus, checksTheRatingsOfTheSavedPlanToo)
{
    QuillmereState state = crowdedStateIn(sessionPlanning);
    state.plannedNextSession = planRated(3, 6);
    EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, state, startingWith(std::nullopt)));
}

TEST(StartFocus, checksTheRatingsOfTheChosenPlanOnly)
{
    QuillmereState state = crowdedStateIn(sessionPlanning);
    state.plannedNextSession = planRated(0, 0);
    EXPECT_EQ(refusalOf([&] { startingWith(planRated(1, 5))(state); }), std::nullopt);

    state = crowdedStateIn(sessionPlanning);
    state.plannedNextSession = planRated(3, 3);
    EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, state, startingWith(planRated(0, 3))));
}

TEST(StartFocus, isRefusedWhenAllCyclesAreUsed)
{
    // The state holds two sessions.
    for (const std::int64_t cycleCount : {2L, 1L, 0L, -1L, long{least}}) {
        SCOPED_TRACE(cycleCount);
        QuillmereState state = crowdedStateIn(sessionPlanning);
        state.currentBlock->cycleCount = cycleCount;
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(samplePlan(9))));
    }
}

TEST(StartFocus, checksInTheOrderStateBlockCyclesPlanRatings)
{
    // Each case fulfils one condition more than the case before it.
    QuillmereState state = crowdedStateIn(idle);
    state.plannedNextSession.reset();
    state.currentBlock.reset();
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(std::nullopt)));
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(planRated(0, 0))));
    state.workflowState = sessionPlanning;
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(std::nullopt)));
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(planRated(0, 0))));
    state.currentBlock = blockInWork(1, 3);
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(std::nullopt)));
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, startingWith(planRated(0, 0))));
    state.currentBlock->cycleCount = 4;
    EXPECT_TRUE(isRefused(WorkflowError::missingSessionPlan, state, startingWith(std::nullopt)));
    EXPECT_TRUE(isRefused(WorkflowError::ratingOutOfRange, state, startingWith(planRated(0, 0))));
    EXPECT_EQ(refusalOf([&] { startingWith(planRated(1, 1))(state); }), std::nullopt);
}

TEST(StartFocus, numbersTheSecondSessionTwoAndGivesItTheBlocksFocusDuration)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock->focusDurationSeconds = 2700.5;
    engine.endBreak(state, now);
    engine.startFocus(state, std::nullopt, now);
    EXPECT_EQ(state.currentSession()->number, 2);
    EXPECT_EQ(state.currentSession()->plannedDurationSeconds, 2700.5);
}

TEST(StartFocus, countsSessionsAndNotTheirNumbers)
{
    QuillmereState state = stateIn(sessionPlanning);
    state.currentBlock->sessions = blockInWork(1, 1).sessions;
    state.currentBlock->sessions.back().number = 40;
    engine.startFocus(state, samplePlan(9), now);
    EXPECT_EQ(state.currentSession()->number, 2);
}

TEST(StartFocus, givesEverySessionAFreshIdentifier)
{
    QuillmereState one = stateIn(sessionPlanning);
    QuillmereState other = one;
    engine.startFocus(one, samplePlan(9), now);
    engine.startFocus(other, samplePlan(9), now);
    EXPECT_NE(one.currentSession()->id, other.currentSession()->id);
    EXPECT_NE(one.currentSession()->id, samplePlan(9).id);
}

}  // namespace
}  // namespace quillmere::test
