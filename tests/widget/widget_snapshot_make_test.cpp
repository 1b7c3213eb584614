// The fields of the widget's summary, except the texts and the countdown.
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/sample_states.hpp"
#include "widget_testing.hpp"

namespace quillmere::test {
namespace {

AgentQuestion question(std::string text, std::optional<Instant> answeredAt = std::nullopt)
{
    return {.id = identifier(1),
            .question = std::move(text),
            .createdAt = moment,
            .answer = std::nullopt,
            .answeredAt = answeredAt};
}

QuillmereState stateWithQuestions(std::vector<AgentQuestion> questions)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.agentQuestions = std::move(questions);
    return state;
}

TEST(WidgetSnapshotMake, ofAFreshStateIsTheEmptyOne)
{
    EXPECT_EQ(summaryOf(QuillmereState::initial(moment - 5)), WidgetSnapshot::empty(moment));
}

TEST(WidgetSnapshotMake, carriesTheCurrentSchemaVersion)
{
    EXPECT_EQ(WidgetSnapshot::currentSchemaVersion, 1);
    EXPECT_EQ(summaryOf(fullState()).schemaVersion, 1);
}

TEST(WidgetSnapshotMake, isStampedWithTheInstantGivenAndNotWithTheStatesUpdate)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.updatedAt = moment - 1000;
    EXPECT_EQ(WidgetSnapshot::make(state, moment + 0.5).updatedAt, moment + 0.5);
}

TEST(WidgetSnapshotMake, hasThePhaseAndTheRouteOfTheWorkflowState)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = summaryOf(stateIn(workflowState));
        EXPECT_EQ(snapshot.phase, fromWorkflowState<WidgetPhase>(workflowState));
        EXPECT_EQ(snapshot.route, fromWorkflowState<WidgetRoute>(workflowState));
    }
}

TEST(WidgetSnapshotMake, ofACompleteStateIsCompleteAndLeadsToIdle)
{
    const WidgetSnapshot snapshot = summaryOf(stateIn(WorkflowState::complete));
    EXPECT_EQ(snapshot.phase, WidgetPhase::complete);
    EXPECT_EQ(snapshot.route, WidgetRoute::idle);
}

TEST(WidgetSnapshotMake, ofABlockReviewIsReviewingAndLeadsToTheBlocksReview)
{
    const WidgetSnapshot snapshot = summaryOf(stateIn(WorkflowState::blockReview));
    EXPECT_EQ(snapshot.phase, WidgetPhase::reviewing);
    EXPECT_EQ(snapshot.route, WidgetRoute::blockReview);
}

TEST(WidgetSnapshotMake, countsTheSessionsOfTheBlockAndItsCycles)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.currentBlock->cycleCount = 5;
    EXPECT_EQ(summaryOf(state).sessionsStarted, 3);
    EXPECT_EQ(summaryOf(state).sessionsPlanned, 5);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(summaryOf(state).sessionsStarted, 0);
    EXPECT_EQ(summaryOf(state).sessionsPlanned, 5);
    state.currentBlock.reset();
    EXPECT_EQ(summaryOf(state).sessionsPlanned, 0);
}

TEST(WidgetSnapshotMake, takesTheCycleCountAsItStands)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    for (const std::int64_t count :
         {std::int64_t{0}, std::int64_t{-3}, std::numeric_limits<std::int64_t>::max()}) {
        state.currentBlock->cycleCount = count;
        EXPECT_EQ(summaryOf(state).sessionsPlanned, count);
    }
}

TEST(WidgetSnapshotMake, hasASessionNumberWhileFocusingOnly)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = stateIn(workflowState);
        state.currentBlock = blockInWork(1, 2);
        const bool isFocusing = workflowState == WorkflowState::focusing;
        EXPECT_EQ(summaryOf(state).currentSessionNumber,
                  isFocusing ? std::optional<std::int64_t>(2) : std::nullopt);
        EXPECT_EQ(summaryOf(state).sessionsStarted, 2);
    }
}

TEST(WidgetSnapshotMake, hasTheNumberThatTheSessionItselfCarries)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().number = 41;
    EXPECT_EQ(summaryOf(state).currentSessionNumber, 41);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(summaryOf(state).currentSessionNumber, std::nullopt);
    state.currentBlock.reset();
    EXPECT_EQ(summaryOf(state).currentSessionNumber, std::nullopt);
}

TEST(WidgetSnapshotMake, hasNoSessionNumberInReviewAndBreakThoughTheSessionCounts)
{
    for (const WorkflowState workflowState : {WorkflowState::sessionReview, WorkflowState::breaking}) {
        SCOPED_TRACE(rawValue(workflowState));
        const WidgetSnapshot snapshot = summaryOf(stateIn(workflowState));
        EXPECT_EQ(snapshot.currentSessionNumber, std::nullopt);
        EXPECT_EQ(snapshot.sessionsStarted, 1);
    }
}

TEST(WidgetSnapshotMake, countsAllOpenQuestionsAndQuotesTheFirstThree)
{
    EXPECT_EQ(WidgetSnapshot::maxOpenQuestions, 3);
    const WidgetSnapshot snapshot = summaryOf(
        stateWithQuestions({question("a"), question("b"), question("c"), question("d"), question("e")}));
    EXPECT_EQ(snapshot.openQuestionCount, 5);
    EXPECT_EQ(snapshot.openQuestions, (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(snapshot.hiddenOpenQuestionCount(), 2);
}

TEST(WidgetSnapshotMake, quotesQuestionsInTheirOrderAndUntrimmed)
{
    const WidgetSnapshot snapshot =
        summaryOf(stateWithQuestions({question("answered", moment), question("  z \n"),
                                      question("also answered", moment), question(""), question("a")}));
    EXPECT_EQ(snapshot.openQuestionCount, 3);
    EXPECT_EQ(snapshot.openQuestions, (std::vector<std::string>{"  z \n", "", "a"}));
    EXPECT_EQ(snapshot.hiddenOpenQuestionCount(), 0);
}

TEST(WidgetSnapshotMake, quotesNoQuestionThatIsAnswered)
{
    const WidgetSnapshot snapshot = summaryOf(stateWithQuestions({question("answered", moment)}));
    EXPECT_EQ(snapshot.openQuestionCount, 0);
    EXPECT_TRUE(snapshot.openQuestions.empty());
}

TEST(WidgetSnapshotMake, leavesTheHistoryOut)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory.push_back(blockInWork(1, 3));
    EXPECT_EQ(summaryOf(state), WidgetSnapshot::empty(moment));
}

}  // namespace
}  // namespace quillmere::test
