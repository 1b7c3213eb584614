// Durations that no timer can count stop the program. The engine accepts them, and a file may have them.
#include <quillmere/engine/timer_snapshot.hpp>

#include <array>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

constexpr const char* doesNotFit = "a duration is not a number of seconds that fits 64 bits";
constexpr const char* overflows = "a difference of whole numbers overflows 64 bits";
constexpr auto uncountable = std::to_array<double>({1e300, -1e300, infinity, -infinity, notANumber, 0x1p64});

TEST(FocusTimerDeathTest, stopsTheProgramOverADurationThatCannotBeCounted)
{
    for (const double seconds : uncountable) {
        SCOPED_TRACE(seconds);
        QuillmereState planned = stateIn(focusing);
        session(planned).plannedDurationSeconds = seconds;
        EXPECT_DEATH(TimerSnapshot::derive(planned, moment), doesNotFit);

        QuillmereState paused = stateIn(focusing);
        session(paused).accumulatedPausedSeconds = seconds;
        EXPECT_DEATH(TimerSnapshot::derive(paused, moment), doesNotFit);

        EXPECT_DEATH(TimerSnapshot::derive(stateIn(focusing), Instant(seconds)), doesNotFit);

        QuillmereState pausedThen = stateIn(focusing);
        session(pausedThen).pausedAt = Instant(seconds);
        EXPECT_DEATH(TimerSnapshot::derive(pausedThen, moment), doesNotFit);
    }
}

TEST(BreakTimerDeathTest, stopsTheProgramOverADurationThatCannotBeCounted)
{
    for (const double seconds : uncountable) {
        SCOPED_TRACE(seconds);
        QuillmereState planned = stateIn(breaking);
        planned.currentBlock->breakDurationSeconds = seconds;
        EXPECT_DEATH(TimerSnapshot::derive(planned, moment), doesNotFit);

        QuillmereState extended = stateIn(breaking);
        extended.breakExtensionSeconds = seconds;
        EXPECT_DEATH(TimerSnapshot::derive(extended, moment), doesNotFit);

        EXPECT_DEATH(TimerSnapshot::derive(stateIn(breaking), Instant(seconds)), doesNotFit);
    }
}

TEST(BreakTimerDeathTest, stopsTheProgramOverASumThatCannotBeCounted)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock->breakDurationSeconds = 0x1p62;
    state.breakExtensionSeconds = 0x1p62;
    EXPECT_DEATH(TimerSnapshot::derive(state, moment), doesNotFit);
}

TEST(FocusTimerDeathTest, stopsTheProgramOverTermsThatFitWithADifferenceThatDoesNot)
{
    QuillmereState longPaused = stateIn(focusing);
    session(longPaused).startedAt = Instant(0x1p63);
    session(longPaused).accumulatedPausedSeconds = 1;
    EXPECT_DEATH(TimerSnapshot::derive(longPaused, Instant(0)), overflows);

    QuillmereState negative = stateIn(focusing);
    session(negative).plannedDurationSeconds = -0x1p63;
    EXPECT_DEATH(TimerSnapshot::derive(negative, moment + 1), overflows);
}

TEST(FocusTimerDeathTest, stopsTheProgramOverARemainderWithoutAnAbsoluteValue)
{
    QuillmereState state = stateIn(focusing);
    session(state).plannedDurationSeconds = -0x1p63;
    EXPECT_DEATH(TimerSnapshot::derive(state, moment), overflows);
}

TEST(TimerEvaluationDeathTest, stopsTheProgramForADurationThatTheTimerCannotCount)
{
    QuillmereState focus = stateIn(focusing);
    EXPECT_DEATH(engine.evaluateTimer(focus, noInstant), doesNotFit);
    QuillmereState pause = stateIn(breaking);
    engine.extendBreak(pause, infinity, moment);
    EXPECT_DEATH(engine.evaluateTimer(pause, moment), doesNotFit);
}

TEST(TimerSnapshot, countsUpToTheEdgesOf64Bits)
{
    QuillmereState state = stateIn(focusing);
    session(state).plannedDurationSeconds = 0x1.fffffffffffffp62;
    const auto timer = TimerSnapshot::derive(state, moment);
    ASSERT_TRUE(timer.has_value());
    EXPECT_EQ(timer->remainingSeconds, 9'223'372'036'854'774'784);

    session(state).plannedDurationSeconds = 0;
    session(state).startedAt = Instant(0);
    const auto overdue = TimerSnapshot::derive(state, Instant(0x1.fffffffffffffp62));
    ASSERT_TRUE(overdue.has_value());
    EXPECT_EQ(overdue->remainingSeconds, -9'223'372'036'854'774'784);
    EXPECT_EQ(overdue->displaySeconds, 9'223'372'036'854'774'784);
}

TEST(TimerSnapshot, doesNotLookAtNumbersThatItDoesNotCount)
{
    for (const double seconds : uncountable) {
        SCOPED_TRACE(seconds);
        for (const WorkflowState workflowState : allCases<WorkflowState>()) {
            SCOPED_TRACE(rawValue(workflowState));
            QuillmereState state = crowdedStateIn(workflowState);
            Block& block = *state.currentBlock;
            block.focusDurationSeconds = seconds;
            if (workflowState != breaking) {
                block.breakDurationSeconds = seconds;
                state.breakExtensionSeconds = seconds;
            }
            if (workflowState != focusing) {
                session(state).plannedDurationSeconds = seconds;
                session(state).accumulatedPausedSeconds = seconds;
            }
            block.sessions.front().plannedDurationSeconds = seconds;
            const bool runs = workflowState == focusing || workflowState == breaking;
            EXPECT_EQ(TimerSnapshot::derive(state, moment).has_value(), runs);
        }
    }
}

}  // namespace
}  // namespace quillmere::test
