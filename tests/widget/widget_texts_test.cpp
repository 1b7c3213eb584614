// The texts and ratings of the widget's summary: which plan they come from, and which outcome is shown when
// the plan names none.
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"
#include "widget_testing.hpp"

namespace quillmere::test {
namespace {

/// A state with sessions by plans 1 and 2, and plan 3 for the next session; all ratings are different.
QuillmereState stateWithAllPlans(WorkflowState workflowState)
{
    QuillmereState state = stateIn(workflowState);
    state.currentBlock = blockInWork(1, 2);
    state.plannedNextSession = samplePlan(3);
    std::int64_t rating = 1;
    for (SessionPlan* plan : {&state.currentBlock->sessions[0].plan, &state.currentBlock->sessions[1].plan,
                              &*state.plannedNextSession}) {
        plan->energy = rating;
        plan->morale = rating + 10;
        ++rating;
    }
    return state;
}

/// A focusing state whose plan has no intended outcome, in a block with these titles.
QuillmereState focusWithoutOutcome(const std::vector<std::string>& titles, std::optional<std::size_t> chosen)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    auto& outcomes = state.currentBlock->outcomes;
    outcomes.clear();
    for (const std::string& title : titles) {
        outcomes.push_back({.id = identifier(static_cast<unsigned>(900 + outcomes.size())), .title = title});
    }
    SessionPlan& plan = state.currentBlock->sessions.back().plan;
    plan.intendedOutcome = "";
    plan.blockOutcomeID =
        chosen ? std::optional(identifier(static_cast<unsigned>(900 + *chosen))) : std::nullopt;
    return state;
}

TEST(WidgetTexts, areThoseOfTheSessionInFocusOrInReview)
{
    for (const WorkflowState workflowState : {WorkflowState::focusing, WorkflowState::sessionReview}) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = summaryOf(stateWithAllPlans(workflowState));
        EXPECT_EQ(snapshot.intendedOutcome, "Outcome of session 2");
        EXPECT_EQ(snapshot.firstAction, "First action 2");
        EXPECT_EQ(snapshot.energy, 2);
        EXPECT_EQ(snapshot.morale, 12);
    }
}

TEST(WidgetTexts, areThoseOfThePlannedNextSessionInPlanningAndBreak)
{
    for (const WorkflowState workflowState : {WorkflowState::sessionPlanning, WorkflowState::breaking}) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = summaryOf(stateWithAllPlans(workflowState));
        EXPECT_EQ(snapshot.intendedOutcome, "Outcome of session 3");
        EXPECT_EQ(snapshot.firstAction, "First action 3");
        EXPECT_EQ(snapshot.energy, 3);
        EXPECT_EQ(snapshot.morale, 13);
    }
}

TEST(WidgetTexts, areOfNoPlanInAnyOtherState)
{
    for (const WorkflowState workflowState : {WorkflowState::idle, WorkflowState::blockPlanning,
                                              WorkflowState::blockReview, WorkflowState::complete}) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = summaryOf(stateWithAllPlans(workflowState));
        EXPECT_EQ(snapshot.intendedOutcome, "Chapter one") << "the first outcome of the block";
        EXPECT_EQ(snapshot.firstAction, "");
        EXPECT_EQ(snapshot.energy, std::nullopt);
        EXPECT_EQ(snapshot.morale, std::nullopt);
    }
}

TEST(WidgetTexts, areOfNoPlanWhereThePlanIsMissing)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = stateIn(workflowState);
        state.currentBlock = sampleBlock(1);
        state.plannedNextSession.reset();
        const WidgetSnapshot snapshot = summaryOf(state);
        EXPECT_EQ(snapshot.intendedOutcome, "Chapter one");
        EXPECT_EQ(snapshot.firstAction, "");
        EXPECT_EQ(snapshot.energy, std::nullopt);
        EXPECT_EQ(snapshot.morale, std::nullopt);
    }
}

TEST(WidgetTexts, areEmptyWithoutABlockAndAPlan)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = stateIn(workflowState);
        state.currentBlock.reset();
        state.plannedNextSession.reset();
        EXPECT_EQ(summaryOf(state).intendedOutcome, "");
        EXPECT_EQ(summaryOf(state).firstAction, "");
    }
}

TEST(WidgetTexts, doNotNeedABlockWhenThePlanHasThem)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.currentBlock.reset();
    EXPECT_EQ(summaryOf(state).intendedOutcome, "Outcome of session 2");
    state.plannedNextSession->intendedOutcome = "";
    EXPECT_EQ(summaryOf(state).intendedOutcome, "");
    EXPECT_EQ(summaryOf(state).firstAction, "First action 2");
}

TEST(WidgetTexts, takeTheRatingsAsTheyStand)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().plan.energy = 0;
    state.currentBlock->sessions.back().plan.morale = -9;
    EXPECT_EQ(summaryOf(state).energy, 0);
    EXPECT_EQ(summaryOf(state).morale, -9);
}

TEST(WidgetOutcome, isThePlansOwnEvenWhenItIsBlank)
{
    QuillmereState state = focusWithoutOutcome({"Title"}, 0);
    state.currentBlock->sessions.back().plan.intendedOutcome = "  ";
    EXPECT_EQ(summaryOf(state).intendedOutcome, "  ");
}

TEST(WidgetOutcome, isTheTitleOfTheChosenOneWhenThePlanNamesNone)
{
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"first", "second", "third"}, 1)).intendedOutcome, "second");
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"first", " ", "third"}, 1)).intendedOutcome, " ");
}

TEST(WidgetOutcome, isTheFirstWithATitleWhenTheChosenOneHasNone)
{
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"", "", "third", "fourth"}, 1)).intendedOutcome, "third");
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"first", "", "third"}, 1)).intendedOutcome, "first");
}

TEST(WidgetOutcome, isTheFirstWithATitleWhenTheChosenOneIsNotThere)
{
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"", "second", "third"}, 77)).intendedOutcome, "second");
}

TEST(WidgetOutcome, isTheFirstWithATitleWhenNoneIsChosen)
{
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"", "second", "third"}, std::nullopt)).intendedOutcome,
              "second");
}

TEST(WidgetOutcome, isEmptyWhenNoneHasATitle)
{
    EXPECT_EQ(summaryOf(focusWithoutOutcome({"", ""}, 1)).intendedOutcome, "");
    EXPECT_EQ(summaryOf(focusWithoutOutcome({}, 0)).intendedOutcome, "");
}

TEST(WidgetOutcome, isLookedUpByTheFirstOfTwoWithOneIdentifier)
{
    QuillmereState state = focusWithoutOutcome({"other", "", "same identifier"}, 1);
    state.currentBlock->outcomes[2].id = state.currentBlock->outcomes[1].id;
    EXPECT_EQ(summaryOf(state).intendedOutcome, "other");
}

}  // namespace
}  // namespace quillmere::test
