// Which changes are the person's, and what a change leaves when it is taken back.
#include "work/undo/undone_state.hpp"

#include <functional>

#include "program_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using work::ChangeOrigin;

QuillmereState changed(QuillmereState state, const std::function<void(QuillmereState&)>& change)
{
    change(state);
    return state;
}

/// Two open questions beside a running session.
QuillmereState asked()
{
    return changed(stateIn(WorkflowState::focusing), [](QuillmereState& state) {
        WorkflowEngine().addQuestion(state, "First?", moment);
        WorkflowEngine().addQuestion(state, "Second?", moment + 1);
    });
}

QuillmereState answered(QuillmereState state, std::size_t index)
{
    WorkflowEngine().answerQuestion(state, state.agentQuestions.at(index).id, "Yes.", moment + 60);
    return state;
}

QuillmereState withQuestion(QuillmereState state, const std::string& question, double second)
{
    WorkflowEngine().addQuestion(state, question, moment + second);
    return state;
}

QuillmereState paused(QuillmereState state)
{
    WorkflowEngine().pauseFocus(state, moment + 100);
    return state;
}

QuillmereState withoutQuestions(const QuillmereState& before, const QuillmereState& after,
                                const QuillmereState& present)
{
    return work::withoutChange({.before = before, .after = after, .origin = ChangeOrigin::questions},
                               present);
}

TEST(OriginOf, tellsWhatThePersonDidFromWhatTheClockDid)
{
    using enum work::ChangeKind;
    const struct {
        work::Changes changes;
        ChangeOrigin origin;
    } examples[] = {
        {{}, ChangeOrigin::clock},
        {{{savedAgain}}, ChangeOrigin::clock},
        {{{focusEnded}}, ChangeOrigin::clock},
        {{{scheduledBlockStarted}}, ChangeOrigin::clock},
        {{{breakOver}}, ChangeOrigin::clock},
        {{{focusEnded}, {questionAsked}}, ChangeOrigin::clock},
        {{{questionAsked}}, ChangeOrigin::questions},
        {{{questionAnswered}, {questionAsked}}, ChangeOrigin::questions},
        {{{answerChanged}}, ChangeOrigin::questions},
        {{{answerRemoved}}, ChangeOrigin::questions},
        {{{questionChanged}}, ChangeOrigin::questions},
        {{{questionRemoved}}, ChangeOrigin::questions},
        {{{focusEndedEarly}}, ChangeOrigin::work},
        {{{scheduledBlockBegun}}, ChangeOrigin::work},
        {{{breakEnded}}, ChangeOrigin::work},
        {{{otherDetails}}, ChangeOrigin::work},
        {{{focusEnded}, {reviewSaved}, {questionAsked}}, ChangeOrigin::work},
    };
    for (const auto& example : examples) {
        EXPECT_EQ(work::originOf(example.changes), example.origin) << &example - examples;
    }
}

TEST(WithoutChange, goesBackToTheWorkBeforeAndLeavesQuestionsAsTheyAre)
{
    const QuillmereState before = asked();
    const QuillmereState after = paused(before);
    const QuillmereState present = withQuestion(answered(after, 0), "Third?", 200);
    const QuillmereState state =
        work::withoutChange({.before = before, .after = after, .origin = ChangeOrigin::work}, present);
    EXPECT_EQ(state.currentBlock, before.currentBlock);
    EXPECT_EQ(state.agentQuestions, present.agentQuestions);
}

TEST(WithoutChange, takesAnAnswerBackAndLeavesTheWorkAsItIs)
{
    const QuillmereState before = asked();
    const QuillmereState after = answered(before, 1);
    const QuillmereState present = answered(paused(after), 0);
    const QuillmereState state = withoutQuestions(before, after, present);
    EXPECT_EQ(state.currentBlock, present.currentBlock);
    EXPECT_EQ(state.agentQuestions.at(0), present.agentQuestions.at(0));
    EXPECT_EQ(state.agentQuestions.at(1), before.agentQuestions.at(1));
}

TEST(WithoutChange, takesAQuestionBack)
{
    const QuillmereState before = asked();
    const QuillmereState after = withQuestion(before, "Third?", 2);
    const QuillmereState present = withQuestion(after, "Fourth?", 3);
    const QuillmereState state = withoutQuestions(before, after, present);
    ASSERT_EQ(state.agentQuestions.size(), 3U);
    EXPECT_EQ(state.agentQuestions.back(), present.agentQuestions.back());
}

TEST(WithoutChange, leavesAQuestionThatCameBesideTheAnswerUndone)
{
    const QuillmereState before = asked();
    const QuillmereState after = withQuestion(answered(before, 0), "Third?", 2);
    const QuillmereState state = withoutQuestions(before, after, after);
    ASSERT_EQ(state.agentQuestions.size(), 3U);
    EXPECT_TRUE(state.agentQuestions.front().isOpen());
}

TEST(WithoutChange, putsAQuestionBackInItsPlace)
{
    const QuillmereState before = asked();
    const QuillmereState after = changed(
        before, [](QuillmereState& state) { state.agentQuestions.erase(state.agentQuestions.begin()); });
    EXPECT_EQ(withoutQuestions(before, after, after), before);
}

TEST(WithoutChange, leavesAQuestionThatCameBesideTheRemovalUndone)
{
    const QuillmereState before = asked();
    QuillmereState after = withQuestion(before, "Third?", 2);
    after.agentQuestions.erase(after.agentQuestions.begin());
    const QuillmereState state = withoutQuestions(before, after, after);
    ASSERT_EQ(state.agentQuestions.size(), 3U);
    EXPECT_EQ(state.agentQuestions.back(), after.agentQuestions.back());
}

TEST(WithoutChange, leavesAQuestionThatCameBackSince)
{
    const QuillmereState before = asked();
    const QuillmereState after = changed(
        before, [](QuillmereState& state) { state.agentQuestions.erase(state.agentQuestions.begin()); });
    const QuillmereState present = answered(before, 0);
    EXPECT_EQ(withoutQuestions(before, after, present), present);
}

/// The pauses of a session that began at `moment`, after the time from second 600 to `now` was counted.
double pausesAfter(QuillmereState state, double now)
{
    work::countAsPause(state, moment + 600, moment + now);
    return state.currentSession()->accumulatedPausedSeconds;
}

TEST(CountAsPause, addsTheTimeToARunningSession)
{
    EXPECT_EQ(pausesAfter(stateIn(WorkflowState::focusing), 700), 100);
}

TEST(CountAsPause, leavesASessionThatDoesNotRun)
{
    const double earlier = stateIn(WorkflowState::sessionReview).currentSession()->accumulatedPausedSeconds;
    EXPECT_EQ(pausesAfter(stateIn(WorkflowState::sessionReview), 700), earlier);
    EXPECT_EQ(pausesAfter(paused(stateIn(WorkflowState::focusing)), 700), 0);
    for (const WorkflowState workflowState : {WorkflowState::idle, WorkflowState::focusing}) {
        QuillmereState withoutSession = stateIn(WorkflowState::idle);
        withoutSession.workflowState = workflowState;
        const QuillmereState before = withoutSession;
        work::countAsPause(withoutSession, moment, moment + 1);
        EXPECT_EQ(withoutSession, before);
    }
}

TEST(CountAsPause, addsNothingWhenTheClockWasSetBack)
{
    EXPECT_EQ(pausesAfter(stateIn(WorkflowState::focusing), 500), 0);
}

TEST(CountAsPause, addsNoMoreThanTheSessionHasRun)
{
    const QuillmereState began = changed(stateIn(WorkflowState::focusing), [](QuillmereState& state) {
        state.currentBlock->sessions.back().startedAt = moment + 650;
    });
    EXPECT_EQ(pausesAfter(began, 700), 50);
}

}  // namespace
}  // namespace quillmere::test
