// The agent's list of tasks.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using Tasks = std::vector<AgentTaskSnapshot>;
using Statuses = std::vector<std::string>;

Tasks tasksOf(const QuillmereState& state)
{
    return StateStore("/nowhere", StateStore::renameReplacing).agentSnapshot(state, std::nullopt).tasks;
}

Statuses statusesOf(const QuillmereState& state)
{
    Statuses statuses;
    for (const AgentTaskSnapshot& task : tasksOf(state)) {
        statuses.push_back(task.status);
    }
    return statuses;
}

/// A state with two sessions, each with or without a review.
QuillmereState twoSessions(WorkflowState workflowState, bool firstIsReviewed, bool lastIsReviewed)
{
    QuillmereState state = stateIn(workflowState);
    state.currentBlock = blockInWork(1, 2);
    auto& sessions = state.currentBlock->sessions;
    sessions[0].review = firstIsReviewed ? std::optional(sampleReview(1)) : std::nullopt;
    sessions[1].review = lastIsReviewed ? std::optional(sampleReview(2)) : std::nullopt;
    state.plannedNextSession.reset();
    return state;
}

TEST(AgentTasks, areNoneWithoutABlock) { EXPECT_TRUE(tasksOf(stateIn(WorkflowState::idle)).empty()); }

TEST(AgentTasks, areNoneBeforeTheFirstSession)
{
    EXPECT_TRUE(tasksOf(stateIn(WorkflowState::sessionPlanning)).empty());
}

TEST(AgentTasks, describeThePlansOfTheSessionsInTheirOrder)
{
    const QuillmereState state = twoSessions(WorkflowState::focusing, true, false);
    const Tasks expected = {{.id = samplePlan(1).id,
                             .title = "Outcome of session 1",
                             .firstAction = "First action 1",
                             .status = "reviewed"},
                            {.id = samplePlan(2).id,
                             .title = "Outcome of session 2",
                             .firstAction = "First action 2",
                             .status = "current"}};
    EXPECT_EQ(tasksOf(state), expected);
}

TEST(AgentTasks, showTheReviewOfTheCurrentSessionAsADraftInSessionReviewOnly)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const bool isDraft = workflowState == WorkflowState::sessionReview;
        EXPECT_EQ(statusesOf(twoSessions(workflowState, true, true)),
                  (Statuses{"reviewed", isDraft ? "review_draft" : "reviewed"}));
    }
}

TEST(AgentTasks, showASessionWithoutAReviewAsCurrentInEveryState)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        EXPECT_EQ(statusesOf(twoSessions(workflowState, true, false)), (Statuses{"reviewed", "current"}));
    }
}

TEST(AgentTasks, showAnEarlierSessionWithoutAReviewAsCurrentToo)
{
    EXPECT_EQ(statusesOf(twoSessions(WorkflowState::focusing, false, false)),
              (Statuses{"current", "current"}));
    EXPECT_EQ(statusesOf(twoSessions(WorkflowState::sessionReview, false, true)),
              (Statuses{"current", "review_draft"}));
}

TEST(AgentTasks, tellTheCurrentSessionByItsIdentifier)
{
    QuillmereState state = twoSessions(WorkflowState::sessionReview, true, true);
    state.currentBlock->sessions[0].id = state.currentBlock->sessions[1].id;
    EXPECT_EQ(statusesOf(state), (Statuses{"review_draft", "review_draft"}));
}

TEST(AgentTasks, endWithThePlannedNextSession)
{
    QuillmereState state = twoSessions(WorkflowState::breaking, true, true);
    state.plannedNextSession = samplePlan(3);
    const Tasks tasks = tasksOf(state);
    ASSERT_EQ(tasks.size(), 3u);
    const AgentTaskSnapshot expected{.id = samplePlan(3).id,
                                     .title = "Outcome of session 3",
                                     .firstAction = "First action 3",
                                     .status = "planned"};
    EXPECT_EQ(tasks.back(), expected);
}

TEST(AgentTasks, listAPlanThatASessionHasOnlyOnce)
{
    for (const unsigned number : {1u, 2u}) {
        SCOPED_TRACE(number);
        QuillmereState state = twoSessions(WorkflowState::breaking, true, true);
        state.plannedNextSession = samplePlan(number);
        state.plannedNextSession->intendedOutcome = "Another text";
        EXPECT_EQ(tasksOf(state), tasksOf(twoSessions(WorkflowState::breaking, true, true)));
    }
}

TEST(AgentTasks, listAPlanThatHasTheIdentifierOfASession)
{
    QuillmereState state = twoSessions(WorkflowState::breaking, true, true);
    state.plannedNextSession = samplePlan(3);
    state.plannedNextSession->id = state.currentBlock->sessions[0].id;
    EXPECT_EQ(statusesOf(state), (Statuses{"reviewed", "reviewed", "planned"}));
}

TEST(AgentTasks, holdThePlannedSessionAloneWithoutABlock)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.plannedNextSession = samplePlan(1);
    EXPECT_EQ(statusesOf(state), Statuses{"planned"});
}

TEST(AgentTasks, keepSessionsThatShareAPlanApart)
{
    QuillmereState state = twoSessions(WorkflowState::focusing, true, false);
    state.currentBlock->sessions[1].plan.id = state.currentBlock->sessions[0].plan.id;
    EXPECT_EQ(statusesOf(state), (Statuses{"reviewed", "current"}));
}

}  // namespace
}  // namespace quillmere::test
