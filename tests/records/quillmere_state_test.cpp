#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::moment;

TEST(InitialState, isIdleWithNothingPlannedAndNothingDone)
{
    const QuillmereState state = QuillmereState::initial(moment);
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_EQ(state.currentBlock, std::nullopt);
    EXPECT_TRUE(state.blockHistory.empty());
    EXPECT_EQ(state.plannedNextSession, std::nullopt);
    EXPECT_EQ(state.breakStartedAt, std::nullopt);
    EXPECT_EQ(state.breakExtensionSeconds, 0);
    EXPECT_EQ(state.breakEndNotifiedAt, std::nullopt);
    EXPECT_TRUE(state.agentQuestions.empty());
    EXPECT_EQ(state.updatedAt, moment);
}

TEST(InitialState, hasANewIdentifierEveryTime)
{
    EXPECT_NE(QuillmereState::initial(moment).id, QuillmereState::initial(moment).id);
}

TEST(CurrentSession, isAbsentWithoutABlockAndWithoutSessions)
{
    QuillmereState state = QuillmereState::initial(moment);
    EXPECT_EQ(state.currentSession(), nullptr);
    state.currentBlock = test::sampleBlock(1);
    EXPECT_EQ(state.currentSession(), nullptr);
}

TEST(CurrentSession, isTheLastSessionOfTheCurrentBlock)
{
    QuillmereState state = test::stateIn(WorkflowState::focusing);
    state.currentBlock = test::blockInWork(1, 3);
    EXPECT_EQ(state.currentSession(), &state.currentBlock->sessions.at(2));
}

TEST(CurrentSession, isTheLastSessionEvenAfterItHasEnded)
{
    const QuillmereState state = test::stateIn(WorkflowState::sessionReview);
    ASSERT_TRUE(state.currentBlock->sessions.back().endedAt);
    EXPECT_EQ(state.currentSession(), &state.currentBlock->sessions.back());
}

TEST(CurrentSession, isNotLookedForInTheHistory)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.blockHistory = {test::blockInWork(1, 2)};
    EXPECT_EQ(state.currentSession(), nullptr);
}

AgentQuestion question(unsigned number, bool hasAnswer, bool isAnswered)
{
    return {
        .id = test::identifier(number),
        .question = "Question",
        // In reverse order of time, so that sorting by time would be noticed.
        .createdAt = moment - number,
        .answer = hasAnswer ? std::optional<std::string>("Answer") : std::nullopt,
        .answeredAt = isAnswered ? std::optional(moment) : std::nullopt,
    };
}

TEST(AgentQuestion, isOpenUntilItHasATimeOfAnswering)
{
    EXPECT_TRUE(question(1, false, false).isOpen());
    EXPECT_TRUE(question(1, true, false).isOpen());
    EXPECT_FALSE(question(1, true, true).isOpen());
    EXPECT_FALSE(question(1, false, true).isOpen());
}

TEST(OpenQuestions, areNoneWhenAllHaveBeenAnswered)
{
    QuillmereState state = QuillmereState::initial(moment);
    EXPECT_TRUE(state.openQuestions().empty());
    state.agentQuestions = {question(1, true, true), question(2, false, true)};
    EXPECT_TRUE(state.openQuestions().empty());
}

TEST(OpenQuestions, includeOneThatHasAnAnswerButNoTimeOfAnswering)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.agentQuestions = {question(1, true, false)};
    EXPECT_EQ(state.openQuestions(), state.agentQuestions);
}

TEST(OpenQuestions, standInTheirStoredOrder)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.agentQuestions = {question(3, false, false), question(1, true, true), question(2, false, false),
                            question(5, false, true), question(4, true, false)};
    const std::vector<AgentQuestion> expected = {question(3, false, false), question(2, false, false),
                                                 question(4, true, false)};
    EXPECT_EQ(state.openQuestions(), expected);
}

TEST(Interruptible, isTrueInEveryStateButFocusing)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        // Outside of focusing, sessions and pauses do not matter.
        QuillmereState state = test::fullState();
        state.workflowState = workflowState;
        state.currentBlock->sessions.back().pausedAt.reset();
        EXPECT_EQ(state.interruptible(), workflowState != WorkflowState::focusing);
        state.currentBlock.reset();
        EXPECT_EQ(state.interruptible(), workflowState != WorkflowState::focusing);
    }
}

TEST(Interruptible, followsThePauseOfTheCurrentSessionWhileFocusing)
{
    QuillmereState state = test::stateIn(WorkflowState::focusing);
    state.currentBlock = test::blockInWork(1, 2);
    EXPECT_FALSE(state.interruptible());
    state.currentBlock->sessions.front().pausedAt = moment;
    EXPECT_FALSE(state.interruptible()) << "an earlier session plays no part";
    state.currentBlock->sessions.back().pausedAt = moment;
    EXPECT_TRUE(state.interruptible());
    state.currentBlock->sessions.back().endedAt = moment;
    EXPECT_TRUE(state.interruptible()) << "an end plays no part";
}

TEST(Interruptible, isFalseWhileFocusingWithoutASession)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.workflowState = WorkflowState::focusing;
    EXPECT_FALSE(state.interruptible());
    state.currentBlock = test::sampleBlock(1);
    EXPECT_FALSE(state.interruptible());
}

TEST(StateCopy, sharesNothingWithTheOriginal)
{
    const QuillmereState original = test::fullState();
    QuillmereState copy = original;
    copy.currentBlock->sessions.front().plan.firstAction = "Something else";
    copy.blockHistory.front().outcomes.clear();
    EXPECT_EQ(original, test::fullState());
    EXPECT_NE(copy, original);
}

}  // namespace
}  // namespace quillmere
