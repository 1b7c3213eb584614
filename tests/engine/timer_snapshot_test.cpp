#include <quillmere/engine/timer_snapshot.hpp>

#include <array>
#include <string>

#include "engine_testing.hpp"
#include "support/failing_allocations.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

TimerSnapshot focusTimer(std::int64_t elapsed, std::int64_t remaining, bool isPaused = false)
{
    return {
        .kind = TimerKind::focus,
        .elapsedSeconds = elapsed,
        .remainingSeconds = remaining,
        .displaySeconds = remaining < 0 ? -remaining : remaining,
        .isOvertime = remaining < 0,
        .isPaused = isPaused,
    };
}

TimerSnapshot breakTimer(std::int64_t elapsed, std::int64_t remaining)
{
    TimerSnapshot timer = focusTimer(elapsed, remaining);
    timer.kind = TimerKind::breakTime;
    return timer;
}

// Focus ----------------------------------------------------------------------------------------------

TEST(FocusTimer, countsTheWholeSecondsOfARunningSession)
{
    // 1500 seconds were planned at `moment`.
    EXPECT_EQ(TimerSnapshot::derive(stateIn(focusing), moment + 600.9), (TimerSnapshot{
                                                                            .kind = TimerKind::focus,
                                                                            .elapsedSeconds = 600,
                                                                            .remainingSeconds = 900,
                                                                            .displaySeconds = 900,
                                                                            .isOvertime = false,
                                                                            .isPaused = false,
                                                                        }));
}

TEST(FocusTimer, showsOvertimeCountingUpAgain)
{
    EXPECT_EQ(TimerSnapshot::derive(stateIn(focusing), moment + 1600), (TimerSnapshot{
                                                                           .kind = TimerKind::focus,
                                                                           .elapsedSeconds = 1600,
                                                                           .remainingSeconds = -100,
                                                                           .displaySeconds = 100,
                                                                           .isOvertime = true,
                                                                           .isPaused = false,
                                                                       }));
}

/// A session with its planned and its paused seconds, and the timer `offset` seconds after its start.
struct Focus {
    double planned;
    double pausedInAll;
    double offset;
    std::int64_t elapsed;
    std::int64_t remaining;
};

constexpr auto focuses = std::to_array<Focus>({
    {1500, 0, 0, 0, 1500},
    {1500, 0, 0.999, 0, 1500},
    {1500, 0, 1, 1, 1499},
    // Overtime begins one second after the remaining time is 0.
    {1500, 0, 1499.9, 1499, 1},
    {1500, 0, 1500, 1500, 0},
    {1500, 0, 1500.9, 1500, 0},
    {1500, 0, 1501, 1501, -1},
    // Before the start the elapsed time is 0.
    {1500, 0, -0.5, 0, 1500},
    {1500, 0, -86'400, 0, 1500},
    // Each term is rounded down by itself: 479.8 seconds of work count as 480.
    {1500, 120.7, 600.5, 480, 1020},
    {1500, 0.9, 600, 600, 900},
    {1500.7, 0, 600.9, 600, 900},
    {0.5, 0, 0, 0, 0},
    // More pause than time.
    {1500, 700, 600, 0, 1500},
    // Only files can have these: a negative pause adds time, a negative plan is overtime at once.
    {1500, -0.5, 600, 601, 899},
    {-10.5, 0, 0, 0, -11},
});

TEST(FocusTimer, roundsEveryTermDownOnItsOwn)
{
    for (const auto& [planned, pausedInAll, offset, elapsed, remaining] : focuses) {
        SCOPED_TRACE(std::to_string(planned) + ", " + std::to_string(pausedInAll) + ", " +
                     std::to_string(offset));
        QuillmereState state = stateIn(focusing);
        session(state).plannedDurationSeconds = planned;
        session(state).accumulatedPausedSeconds = pausedInAll;
        EXPECT_EQ(TimerSnapshot::derive(state, moment + offset), focusTimer(elapsed, remaining));
    }
}

TEST(FocusTimer, standsStillWhilePaused)
{
    QuillmereState state = stateIn(focusing);
    session(state).pausedAt = moment + 300;
    for (const double offset : {300.0, 900.0, 86'400.0, -86'400.0, 1e300, infinity, notANumber}) {
        SCOPED_TRACE(offset);
        EXPECT_EQ(TimerSnapshot::derive(state, moment + offset), focusTimer(300, 1200, true));
    }
}

TEST(FocusTimer, canBePausedInOvertime)
{
    QuillmereState state = stateIn(focusing);
    session(state).pausedAt = moment + 1600;
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 9000), focusTimer(1600, -100, true));
}

TEST(FocusTimer, subtracts120SecondsAfterAPauseOf120Point7)
{
    QuillmereState state = stateIn(focusing);
    engine.pauseFocus(state, moment + 300);
    engine.resumeFocus(state, moment + 420.7);
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 600), focusTimer(480, 1020));
}

TEST(FocusTimer, goesByTheSessionAndNotByTheBlock)
{
    QuillmereState state = stateIn(focusing);
    state.currentBlock->focusDurationSeconds = 60;
    EXPECT_EQ(TimerSnapshot::derive(state, moment), focusTimer(0, 1500));
}

TEST(FocusTimer, goesByTheLastSession)
{
    QuillmereState state = stateIn(focusing);
    state.currentBlock = blockInWork(1, 3);
    state.currentBlock->sessions.front().pausedAt = moment;
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 10), focusTimer(10, 1490));
}

TEST(FocusTimer, doesNotAskWhetherTheSessionHasEnded)
{
    QuillmereState state = stateIn(focusing);
    session(state).endedAt = moment + 5;
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 10), focusTimer(10, 1490));
}

TEST(FocusTimer, isAbsentWithoutABlockOrASession)
{
    QuillmereState state = crowdedStateIn(focusing);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(TimerSnapshot::derive(state, moment), std::nullopt);
    state.currentBlock.reset();
    EXPECT_EQ(TimerSnapshot::derive(state, moment), std::nullopt);
}

// The end of a session -------------------------------------------------------------------------------

/// A session that started at `moment`, and whether its time had run out when it ended.
struct Ending {
    double planned;
    double paused;
    double offset;
    bool ranOut;
};

constexpr auto endings = std::to_array<Ending>({
    {1500, 0, 1500, true},
    {1500, 0, 1499.9, false},
    {1500, 0, 60, false},
    {1500, 0, -60, false},
    // Each term is rounded down by itself: 90 whole seconds are planned.
    {90.7, 0, 90, true},
    {90.7, 0, 89.9, false},
    {90.7, 10.7, 100, true},
    {90.7, 10.7, 99.9, false},
    {0.5, 0, 0, true},
});

TEST(TimeRanOut, isTrueForASessionThatTheTimerEnded)
{
    for (const auto& [planned, paused, offset, ranOut] : endings) {
        SCOPED_TRACE(std::to_string(planned) + ", " + std::to_string(paused) + ", " + std::to_string(offset));
        QuillmereState state = stateIn(focusing);
        session(state).plannedDurationSeconds = planned;
        session(state).accumulatedPausedSeconds = paused;
        const bool isEnded = engine.evaluateTimer(state, moment + offset) == TimerTransition::focusEnded;
        EXPECT_EQ(isEnded, ranOut);
        if (!isEnded) {
            engine.endFocus(state, moment + offset);
        }
        EXPECT_EQ(timeRanOut(session(state)), ranOut);
    }
}

TEST(TimeRanOut, isTrueForASessionThatWasPausedAfterItsTime)
{
    QuillmereState state = stateIn(focusing);
    session(state).pausedAt = moment + 1500.5;
    ASSERT_EQ(engine.evaluateTimer(state, moment + 1600.25), TimerTransition::focusEnded);
    EXPECT_TRUE(timeRanOut(session(state)));
}

TEST(TimeRanOut, isFalseForASessionThatHasNotEnded)
{
    QuillmereState state = stateIn(focusing);
    session(state).plannedDurationSeconds = 0;
    EXPECT_FALSE(timeRanOut(session(state)));
}

// Break ----------------------------------------------------------------------------------------------

/// One break: planned and extended seconds, and the timer `offset` seconds after its start.
struct TimedBreak {
    double planned;
    double extension;
    double offset;
    std::int64_t elapsed;
    std::int64_t remaining;
};

constexpr auto timedBreaks = std::to_array<TimedBreak>({
    {300, 0, 0, 0, 300},
    {300, 0, 100.9, 100, 200},
    {300, 60.5, 0, 0, 360},
    // The break and its extension are added before they are rounded.
    {300.5, 60.5, 0, 0, 361},
    {300.25, 60.5, 0, 0, 360},
    {0.5, 0.5, 0, 0, 1},
    {300, 0, 299.9, 299, 1},
    {300, 0, 300, 300, 0},
    {300, 0, 301, 301, -1},
    {300, 60, 400.5, 400, -40},
    {300, 0, -0.5, 0, 300},
    {300, 0, -86'400, 0, 300},
});

TEST(BreakTimer, countsTheBreakAndItsExtension)
{
    for (const auto& [planned, extension, offset, elapsed, remaining] : timedBreaks) {
        SCOPED_TRACE(std::to_string(planned) + ", " + std::to_string(extension) + ", " +
                     std::to_string(offset));
        QuillmereState state = stateIn(breaking);
        state.currentBlock->breakDurationSeconds = planned;
        state.breakExtensionSeconds = extension;
        EXPECT_EQ(TimerSnapshot::derive(state, moment + offset), breakTimer(elapsed, remaining));
    }
}

TEST(BreakTimer, isNeverPaused)
{
    QuillmereState state = stateIn(breaking);
    session(state).pausedAt = moment;
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 100), breakTimer(100, 200));
}

TEST(BreakTimer, needsNoSession)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(TimerSnapshot::derive(state, moment + 100), breakTimer(100, 200));
}

TEST(BreakTimer, isAbsentWithoutItsStartOrABlock)
{
    QuillmereState withoutStart = crowdedStateIn(breaking);
    withoutStart.breakStartedAt.reset();
    EXPECT_EQ(TimerSnapshot::derive(withoutStart, moment), std::nullopt);
    QuillmereState withoutBlock = crowdedStateIn(breaking);
    withoutBlock.currentBlock.reset();
    EXPECT_EQ(TimerSnapshot::derive(withoutBlock, moment), std::nullopt);
}

// Both -----------------------------------------------------------------------------------------------

TEST(TimerSnapshot, isAbsentOutsideFocusAndBreak)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const bool runs = workflowState == focusing || workflowState == breaking;
        EXPECT_EQ(TimerSnapshot::derive(crowdedStateIn(workflowState), moment).has_value(), runs);
    }
    EXPECT_EQ(TimerSnapshot::derive(crowdedStateIn(static_cast<WorkflowState>(8)), moment), std::nullopt);
}

TEST(TimerSnapshot, allocatesNothing)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const QuillmereState state = crowdedStateIn(workflowState);
        const std::size_t before = allocationsMade();
        (void)TimerSnapshot::derive(state, moment);
        EXPECT_EQ(allocationsMade(), before);
    }
}

TEST(TimerSnapshot, isEqualFieldByField)
{
    const TimerSnapshot timer = focusTimer(600, 900);
    std::array<TimerSnapshot, 6> others = {timer, timer, timer, timer, timer, timer};
    others[0].kind = TimerKind::breakTime;
    others[1].elapsedSeconds += 1;
    others[2].remainingSeconds += 1;
    others[3].displaySeconds += 1;
    others[4].isOvertime = true;
    others[5].isPaused = true;
    EXPECT_EQ(timer, focusTimer(600, 900));
    for (const TimerSnapshot& other : others) {
        SCOPED_TRACE(&other - others.data());
        EXPECT_FALSE(timer == other);
    }
}

}  // namespace
}  // namespace quillmere::test
