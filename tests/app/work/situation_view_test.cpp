#include "work/situation_view.hpp"

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using work::SituationView;

SituationView viewOf(const QuillmereState& state, Instant now = moment)
{
    return SituationView::of({state, {}, now});
}

using Commands = std::vector<std::string_view>;

TEST(SituationView, hasTheCommandsOfThePossibleStepsAndAmendments)
{
    EXPECT_EQ(viewOf(stateIn(WorkflowState::idle)).nextCommands, (Commands{"plan", "now"}));
    EXPECT_EQ(viewOf(stateIn(WorkflowState::sessionPlanning)).nextCommands,
              (Commands{"focus", "now", "cancel", "change"}));
    EXPECT_EQ(viewOf(stateWithScheduledBlock()).nextCommands, (Commands{"start", "edit", "cancel"}));
    EXPECT_EQ(viewOf(stateIn(WorkflowState::focusing)).nextCommands,
              (Commands{"pause", "end", "change", "extend", "end --at", "away"}));
    EXPECT_EQ(viewOf(stateIn(WorkflowState::breaking)).nextCommands,
              (Commands{"break end", "break extend", "finish", "change"}));
}

TEST(SituationView, offersNoFocusWithoutACycleLeft)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.workflowState = WorkflowState::sessionPlanning;
    EXPECT_EQ(viewOf(state).nextCommands, (Commands{"finish", "change"}));
}

TEST(SituationView, hasTheTimerOfARunningSession)
{
    const auto timer = viewOf(stateIn(WorkflowState::focusing), moment + 375).timer;
    ASSERT_TRUE(timer);
    EXPECT_EQ(timer->remainingSeconds, 1'125);
    EXPECT_EQ(timer->usedShare, 0.25);
    EXPECT_FALSE(timer->isPaused);
    EXPECT_FALSE(viewOf(stateIn(WorkflowState::idle)).timer);
}

TEST(SituationView, countsTheSessionsThatHaveBegun)
{
    const auto session = viewOf(stateIn(WorkflowState::focusing)).session;
    ASSERT_TRUE(session);
    EXPECT_EQ(session->number, 1);
    EXPECT_EQ(session->count, 3);
    EXPECT_FALSE(viewOf(stateIn(WorkflowState::idle)).session);
}

TEST(SituationView, hasTheTimesOfAScheduledBlock)
{
    const QuillmereState state = stateWithScheduledBlock();
    const auto schedule = viewOf(state).schedule;
    ASSERT_TRUE(schedule);
    EXPECT_EQ(schedule->start, *state.currentBlock->plannedStart);
    EXPECT_EQ(schedule->end, state.currentBlock->plannedEnd());
    EXPECT_FALSE(viewOf(stateIn(WorkflowState::focusing)).schedule);
}

TEST(SituationView, hasThePlanOfTheRunningSessionAndOtherwiseTheNextOne)
{
    const QuillmereState focusing = stateIn(WorkflowState::focusing);
    EXPECT_EQ(viewOf(focusing).plan, focusing.currentSession()->plan);
    QuillmereState breaking = stateIn(WorkflowState::breaking);
    breaking.plannedNextSession = samplePlan(2);
    EXPECT_EQ(viewOf(breaking).plan, samplePlan(2));
}

TEST(SituationView, namesTheOutcomeThatThePlanServes)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    const Outcome served = state.currentBlock->outcomes.back();
    state.currentBlock->sessions.back().plan.blockOutcomeID = served.id;
    EXPECT_EQ(viewOf(state).outcomeServed, served.title);
    state.currentBlock->sessions.back().plan.blockOutcomeID.reset();
    EXPECT_EQ(viewOf(state).outcomeServed, "");
}

}  // namespace
}  // namespace quillmere::test
