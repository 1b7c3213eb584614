// The fields of the agent's summary.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "store_testing.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

TEST(AgentSnapshot, ofAFreshStateIsEmptyAndInterruptible)
{
    const AgentSnapshot expected{
        .schemaVersion = 1,
        .workflowState = "idle",
        .interruptible = true,
        .block = std::nullopt,
        .outcomes = {},
        .tasks = {},
        .sessions = {},
        .currentSession = std::nullopt,
        .nextSession = std::nullopt,
        .remainingSeconds = std::nullopt,
        .openQuestions = {},
        .updatedAt = moment,
    };
    EXPECT_EQ(summaryOf(QuillmereState::initial(moment)), expected);
}

TEST(AgentSnapshot, namesEveryWorkflowStateAsItIsStored)
{
    constexpr std::string_view names[] = {"idle",          "blockPlanning", "sessionPlanning", "focusing",
                                          "sessionReview", "breaking",      "blockReview",     "complete"};
    std::size_t index = 0;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        EXPECT_EQ(summaryOf(stateIn(workflowState)).workflowState, names[index++]);
    }
    EXPECT_EQ(index, std::size(names));
}

TEST(AgentSnapshot, hasTheBlockItsOutcomesAndItsSessions)
{
    const QuillmereState state = fullState();
    const AgentSnapshot snapshot = summaryOf(state);
    EXPECT_EQ(snapshot.block, state.currentBlock);
    EXPECT_EQ(snapshot.outcomes, state.currentBlock->outcomes);
    EXPECT_EQ(snapshot.sessions, state.currentBlock->sessions);
    EXPECT_EQ(snapshot.sessions.size(), 2u);
}

TEST(AgentSnapshot, hasTheLastSessionAsTheCurrentOneEndedOrNot)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    EXPECT_EQ(summaryOf(state).currentSession, state.currentBlock->sessions[2]);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(summaryOf(state).currentSession, std::nullopt);
    state.currentBlock.reset();
    EXPECT_EQ(summaryOf(state).currentSession, std::nullopt);
}

TEST(AgentSnapshot, hasThePlannedNextSession)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    EXPECT_EQ(summaryOf(state).nextSession, samplePlan(2));
    state.plannedNextSession.reset();
    EXPECT_EQ(summaryOf(state).nextSession, std::nullopt);
}

TEST(AgentSnapshot, forbidsInterruptionOnlyWhileAFocusSessionRuns)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        EXPECT_EQ(summaryOf(stateIn(workflowState)).interruptible, workflowState != WorkflowState::focusing);
    }
    QuillmereState paused = stateIn(WorkflowState::focusing);
    paused.currentBlock->sessions.back().pausedAt = moment;
    EXPECT_TRUE(summaryOf(paused).interruptible);
}

TEST(AgentSnapshot, leavesAnsweredQuestionsOut)
{
    QuillmereState state = fullState();
    state.agentQuestions.insert(state.agentQuestions.begin(), state.agentQuestions[1]);
    state.agentQuestions.front().question = "The first one";
    const AgentSnapshot snapshot = summaryOf(state);
    ASSERT_EQ(snapshot.openQuestions.size(), 2u);
    EXPECT_EQ(snapshot.openQuestions[0], state.agentQuestions[0]);
    EXPECT_EQ(snapshot.openQuestions[1], state.agentQuestions[2]);
}

TEST(AgentSnapshot, goesByTheInstantOfAnAnswerAndNotByItsText)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.agentQuestions = {{.id = identifier(1),
                             .question = "",
                             .createdAt = moment,
                             .answer = "An answer without an instant",
                             .answeredAt = std::nullopt},
                            {.id = identifier(2),
                             .question = "",
                             .createdAt = moment,
                             .answer = std::nullopt,
                             .answeredAt = moment}};
    ASSERT_EQ(summaryOf(state).openQuestions.size(), 1u);
    EXPECT_EQ(summaryOf(state).openQuestions[0].id, identifier(1));
}

TEST(AgentSnapshot, isStampedWithTheStatesUpdateWithoutAnInstant)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.updatedAt = moment + 100;
    EXPECT_EQ(summaryOf(state).updatedAt, moment + 100);
    EXPECT_EQ(summaryOf(state).remainingSeconds, 1400);
}

TEST(AgentSnapshot, isStampedWithTheInstantGivenAndReadsTheTimerAtIt)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.updatedAt = moment + 100;
    const AgentSnapshot snapshot = summaryOf(state, moment + 250.5);
    EXPECT_EQ(snapshot.updatedAt, moment + 250.5);
    EXPECT_EQ(snapshot.remainingSeconds, 1250);
}

TEST(AgentSnapshot, hasRemainingSecondsExactlyWhenATimerRuns)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const bool runs =
            workflowState == WorkflowState::focusing || workflowState == WorkflowState::breaking;
        EXPECT_EQ(summaryOf(stateIn(workflowState)).remainingSeconds.has_value(), runs);
    }
    QuillmereState broken = stateIn(WorkflowState::breaking);
    broken.breakStartedAt.reset();
    EXPECT_EQ(summaryOf(broken).remainingSeconds, std::nullopt);
    broken = stateIn(WorkflowState::focusing);
    broken.currentBlock->sessions.clear();
    EXPECT_EQ(summaryOf(broken).remainingSeconds, std::nullopt);
}

TEST(AgentSnapshot, hasTheTimersRemainingSecondsUnchanged)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    EXPECT_EQ(summaryOf(state, moment - 10).remainingSeconds, 1500);
    EXPECT_EQ(summaryOf(state, moment + 1500).remainingSeconds, 0);
    EXPECT_EQ(summaryOf(state, moment + 1600).remainingSeconds, -100);

    state = stateIn(WorkflowState::breaking);
    state.breakExtensionSeconds = 60;
    EXPECT_EQ(summaryOf(state, moment + 30).remainingSeconds, 330);
    EXPECT_EQ(summaryOf(state, moment + 400).remainingSeconds, -40);
    EXPECT_EQ(summaryOf(state, moment + 400).remainingSeconds,
              TimerSnapshot::derive(state, moment + 400)->remainingSeconds);
}

TEST(AgentSnapshot, leavesTheHistoryOut)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory.push_back(sampleBlock(1));
    EXPECT_EQ(summaryOf(state), summaryOf(stateIn(WorkflowState::idle)));
}

TEST(AgentSnapshot, isEqualOnlyInEveryField)
{
    const AgentSnapshot snapshot = summaryOf(fullState());
    const auto differs = [&](auto change) {
        AgentSnapshot other = snapshot;
        change(other);
        return other != snapshot;
    };
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.schemaVersion = 2; }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.workflowState = "idle"; }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.interruptible = !other.interruptible; }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.block.reset(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.outcomes.pop_back(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.tasks[0].status = "planned"; }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.sessions.pop_back(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.currentSession.reset(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.nextSession.reset(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.remainingSeconds = 7; }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.openQuestions.clear(); }));
    EXPECT_TRUE(differs([](AgentSnapshot& other) { other.updatedAt = moment - 1; }));
}

}  // namespace
}  // namespace quillmere::test
