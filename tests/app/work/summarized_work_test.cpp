// The state behind the two summaries.
#include "work/summarized_work.hpp"

#include <limits>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using work::SummarizedWork;

AgentSnapshot agentOf(const QuillmereState& state)
{
    return StateStore({}, StateStore::renameReplacing).agentSnapshot(state, std::nullopt);
}

std::optional<QuillmereState> stateBehind(const QuillmereState& state)
{
    return SummarizedWork::of(WidgetSnapshot::make(state, moment), agentOf(state)).state;
}

TEST(SummarizedWork, hasTheStateWithoutItsHistoryAndItsAnsweredQuestions)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        if (workflowState == WorkflowState::breaking) {
            continue;
        }
        QuillmereState state = stateIn(workflowState);
        state.agentQuestions = fullState().agentQuestions;
        const auto known = stateBehind(state);
        ASSERT_TRUE(known) << rawValue(workflowState);
        state.id = known->id;
        state.agentQuestions = state.openQuestions();
        EXPECT_EQ(*known, state);
    }
}

TEST(SummarizedWork, leavesBreaksToTheWidgetsSummary)
{
    EXPECT_FALSE(stateBehind(stateIn(WorkflowState::breaking)));
}

TEST(SummarizedWork, knowsAStateWhosePausesHaveAFractionOfASecond)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 42.5;
    WidgetSnapshot inFile = WidgetSnapshot::make(state, moment);
    inFile.countdown->startedAt = moment + 42;
    EXPECT_TRUE(SummarizedWork::of(inFile, agentOf(state)).state);
}

TEST(SummarizedWork, isTheWidgetsAloneWhereTheOtherIsOfAnotherState)
{
    const QuillmereState before = stateIn(WorkflowState::focusing);
    QuillmereState after = before;
    after.currentBlock->sessions.back().plannedDurationSeconds += 600;
    EXPECT_FALSE(SummarizedWork::of(WidgetSnapshot::make(before, moment), agentOf(after)).state);
    EXPECT_FALSE(SummarizedWork::of(WidgetSnapshot::make(after, moment), agentOf(before)).state);
    EXPECT_FALSE(SummarizedWork::of(WidgetSnapshot::make(before, moment), std::nullopt).state);
}

TEST(SummarizedWork, takesNoStateOutsideTheLimitsAndNoUnknownOne)
{
    const QuillmereState state = stateIn(WorkflowState::focusing);
    for (const double length : {0.0, -1.0, 1e300, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()}) {
        AgentSnapshot agent = agentOf(state);
        agent.block->sessions.back().plannedDurationSeconds = length;
        EXPECT_FALSE(SummarizedWork::of(WidgetSnapshot::make(state, moment), agent).state) << length;
    }
    AgentSnapshot agent = agentOf(state);
    agent.workflowState = "resting";
    EXPECT_FALSE(SummarizedWork::of(WidgetSnapshot::make(state, moment), agent).state);
}

}  // namespace
}  // namespace quillmere::test
