// The evaluation of the timer.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// Whether an evaluation reports nothing and changes nothing.
testing::AssertionResult hasNothingToDo(const QuillmereState& before, Instant at)
{
    QuillmereState state = before;
    if (engine.evaluateTimer(state, at) != TimerTransition::noChange) {
        return testing::AssertionFailure() << "reports a change";
    }
    return isExactly(state, before);
}

/// An evaluation `offset` seconds after the start of a session of 1500 seconds, or of a break of 300 seconds.
struct TimerEvaluation {
    double offset;
    bool isOver;
};

constexpr auto focusEvaluations = std::to_array<TimerEvaluation>({
    {0, false},
    {-60, false},
    {1499, false},
    {1499.999, false},
    {1500, true},
    {1500.001, true},
    {1501, true},
    {1e9, true},
});

TEST(EvaluateTimer, endsTheFocusWhenLessThanASecondRemains)
{
    for (const auto& [offset, isOver] : focusEvaluations) {
        SCOPED_TRACE(offset);
        QuillmereState state = stateIn(focusing);
        if (!isOver) {
            EXPECT_TRUE(hasNothingToDo(state, moment + offset));
            continue;
        }
        QuillmereState expected = state;
        session(expected).endedAt = moment + offset;
        expected.workflowState = sessionReview;
        expected.updatedAt = moment + offset;
        EXPECT_EQ(engine.evaluateTimer(state, moment + offset), TimerTransition::focusEnded);
        EXPECT_TRUE(isExactly(state, expected));
    }
}

TEST(EvaluateTimer, endsTheFocusJustAsEndFocusDoes)
{
    QuillmereState evaluated = crowdedStateIn(focusing);
    session(evaluated).plannedDurationSeconds = 60;
    QuillmereState ended = evaluated;
    EXPECT_EQ(engine.evaluateTimer(evaluated, now), TimerTransition::focusEnded);
    engine.endFocus(ended, now);
    EXPECT_TRUE(isExactly(evaluated, ended));
}

TEST(EvaluateTimer, leavesAPausedFocusAloneHoweverLongItIsPaused)
{
    QuillmereState state = stateIn(focusing);
    session(state).pausedAt = moment + 1499;
    EXPECT_TRUE(hasNothingToDo(state, moment + 86'400));
    EXPECT_TRUE(hasNothingToDo(state, noInstant));
}

TEST(EvaluateTimer, endsAFocusThatWasPausedAfterItsTimeAndClosesThePause)
{
    QuillmereState state = stateIn(focusing);
    session(state).pausedAt = moment + 1500;
    EXPECT_EQ(engine.evaluateTimer(state, moment + 1530), TimerTransition::focusEnded);
    EXPECT_EQ(session(state).pausedAt, std::nullopt);
    EXPECT_EQ(session(state).accumulatedPausedSeconds, 30);
    EXPECT_EQ(session(state).endedAt, moment + 1530);
}

TEST(EvaluateTimer, letsAPauseMoveTheEndOfTheFocus)
{
    QuillmereState state = stateIn(focusing);
    session(state).accumulatedPausedSeconds = 120.7;
    EXPECT_TRUE(hasNothingToDo(state, moment + 1619.9));
    EXPECT_EQ(engine.evaluateTimer(state, moment + 1620), TimerTransition::focusEnded);
}

TEST(EvaluateTimer, reportsTheEndOfAFocusOnce)
{
    QuillmereState state = stateIn(focusing);
    ASSERT_EQ(engine.evaluateTimer(state, moment + 1500), TimerTransition::focusEnded);
    EXPECT_TRUE(hasNothingToDo(state, moment + 1501));
}

constexpr auto breakEvaluations = std::to_array<TimerEvaluation>({
    {0, false},
    {-60, false},
    {299.999, false},
    {300, true},
    {300.5, true},
    {1e9, true},
});

TEST(EvaluateTimer, stampsABreakThatIsOverAndLetsItGoOn)
{
    for (const auto& [offset, isOver] : breakEvaluations) {
        SCOPED_TRACE(offset);
        QuillmereState state = stateIn(breaking);
        if (!isOver) {
            EXPECT_TRUE(hasNothingToDo(state, moment + offset));
            continue;
        }
        QuillmereState expected = state;
        expected.breakEndNotifiedAt = moment + offset;
        expected.updatedAt = moment + offset;
        EXPECT_EQ(engine.evaluateTimer(state, moment + offset), TimerTransition::breakEnded);
        EXPECT_TRUE(isExactly(state, expected));
    }
}

TEST(EvaluateTimer, reportsTheEndOfABreakOnce)
{
    QuillmereState state = stateIn(breaking);
    ASSERT_EQ(engine.evaluateTimer(state, moment + 300), TimerTransition::breakEnded);
    EXPECT_TRUE(hasNothingToDo(state, moment + 301));
    EXPECT_TRUE(hasNothingToDo(state, moment + 9000));
    // Also when the clock is set back before the end.
    EXPECT_TRUE(hasNothingToDo(state, moment + 10));
}

TEST(EvaluateTimer, reportsTheEndOfABreakOnceMoreAfterEachExtension)
{
    QuillmereState state = stateIn(breaking);
    ASSERT_EQ(engine.evaluateTimer(state, moment + 300), TimerTransition::breakEnded);
    engine.extendBreak(state, 60, moment + 310);
    EXPECT_TRUE(hasNothingToDo(state, moment + 359));
    EXPECT_EQ(engine.evaluateTimer(state, moment + 360), TimerTransition::breakEnded);
    EXPECT_TRUE(hasNothingToDo(state, moment + 361));
    // The end is reported again even if the break is over in spite of the extension.
    engine.extendBreak(state, 0.5, moment + 400);
    EXPECT_EQ(engine.evaluateTimer(state, moment + 400), TimerTransition::breakEnded);
    EXPECT_EQ(state.breakEndNotifiedAt, moment + 400);
    EXPECT_TRUE(hasNothingToDo(state, moment + 401));
}

TEST(EvaluateTimer, reportsTheEndOfEveryBreak)
{
    QuillmereState state = stateIn(breaking);
    ASSERT_EQ(engine.evaluateTimer(state, moment + 300), TimerTransition::breakEnded);
    engine.endBreak(state, moment + 310);
    engine.startFocus(state, std::nullopt, moment + 320);
    engine.endFocus(state, moment + 330);
    engine.saveReviewAndStartBreak(state, sampleReview(2), samplePlan(3), moment + 340);
    EXPECT_TRUE(hasNothingToDo(state, moment + 400));
    EXPECT_EQ(engine.evaluateTimer(state, moment + 640), TimerTransition::breakEnded);
}

TEST(EvaluateTimer, hasNothingToDoWithoutATimer)
{
    QuillmereState state = crowdedStateIn(focusing);
    state.currentBlock->sessions.clear();
    EXPECT_TRUE(hasNothingToDo(state, now));
    state.currentBlock.reset();
    EXPECT_TRUE(hasNothingToDo(state, now));

    state = crowdedStateIn(breaking);
    state.breakEndNotifiedAt.reset();
    QuillmereState withoutBlock = state;
    withoutBlock.currentBlock.reset();
    EXPECT_TRUE(hasNothingToDo(withoutBlock, now));
    state.breakStartedAt.reset();
    EXPECT_TRUE(hasNothingToDo(state, now));
}

TEST(EvaluateTimer, doesNotReadTheTimeOutsideFocusAndBreak)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        if (workflowState != focusing && workflowState != breaking) {
            SCOPED_TRACE(rawValue(workflowState));
            EXPECT_TRUE(hasNothingToDo(crowdedStateIn(workflowState), noInstant));
        }
    }
}

}  // namespace
}  // namespace quillmere::test
