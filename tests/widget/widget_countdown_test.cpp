// The countdown of the widget's summary.
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

std::optional<WidgetCountdown> countdownOf(const QuillmereState& state, Instant at)
{
    return WidgetSnapshot::make(state, at).countdown;
}

TEST(WidgetCountdown, isThereWhileATimerRunsOnly)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const bool runs =
            workflowState == WorkflowState::focusing || workflowState == WorkflowState::breaking;
        EXPECT_EQ(countdownOf(stateIn(workflowState), moment).has_value(), runs);
    }
}

TEST(WidgetCountdown, ofAFocusSessionEndsAfterTheRemainingSeconds)
{
    const WidgetCountdown expected{
        .endsAt = moment + 1500, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 1400};
    EXPECT_EQ(countdownOf(stateIn(WorkflowState::focusing), moment + 100), expected);
}

TEST(WidgetCountdown, countsWholeSecondsFromTheInstantItIsMadeAt)
{
    // 100.25 seconds have passed, 1400 whole ones remain from here on.
    const WidgetCountdown expected{
        .endsAt = moment + 1500.25, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 1400};
    EXPECT_EQ(countdownOf(stateIn(WorkflowState::focusing), moment + 100.25), expected);
}

TEST(WidgetCountdown, beginsLaterByTheTimePaused)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 90.5;
    const WidgetCountdown expected{.endsAt = moment + 200 + 1390,
                                   .startedAt = moment + 90.5,
                                   .isPaused = false,
                                   .frozenRemainingSeconds = 1390};
    EXPECT_EQ(countdownOf(state, moment + 200), expected);
}

TEST(WidgetCountdown, isFrozenWhilePausedAndItsEndMovesOn)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment + 300;
    for (const double later : {300.0, 400.0, 9000.0}) {
        SCOPED_TRACE(later);
        const WidgetCountdown expected{.endsAt = moment + later + 1200,
                                       .startedAt = moment,
                                       .isPaused = true,
                                       .frozenRemainingSeconds = 1200};
        EXPECT_EQ(countdownOf(state, moment + later), expected);
    }
}

TEST(WidgetCountdown, inOvertimeHasEndedAlready)
{
    const WidgetCountdown expected{
        .endsAt = moment + 1500, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = -60};
    EXPECT_EQ(countdownOf(stateIn(WorkflowState::focusing), moment + 1560), expected);
}

TEST(WidgetCountdown, beforeTheStartHasAllTimeLeft)
{
    const WidgetCountdown expected{
        .endsAt = moment - 10 + 1500, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 1500};
    EXPECT_EQ(countdownOf(stateIn(WorkflowState::focusing), moment - 10), expected);
}

TEST(WidgetCountdown, ofABreakCountsItsExtension)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.breakStartedAt = moment - 20;
    state.breakExtensionSeconds = 120;
    const WidgetCountdown expected{.endsAt = moment - 20 + 420,
                                   .startedAt = moment - 20,
                                   .isPaused = false,
                                   .frozenRemainingSeconds = 370};
    EXPECT_EQ(countdownOf(state, moment + 30), expected);
}

TEST(WidgetCountdown, ofABreakIgnoresThePausesOfTheSessionBefore)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 90;
    state.currentBlock->sessions.back().pausedAt = moment - 5;
    const WidgetCountdown expected{
        .endsAt = moment + 300, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 200};
    EXPECT_EQ(countdownOf(state, moment + 100), expected);
}

TEST(WidgetCountdown, isAbsentWithoutATimer)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.breakStartedAt.reset();
    EXPECT_EQ(countdownOf(state, moment), std::nullopt);

    state = stateIn(WorkflowState::breaking);
    state.currentBlock.reset();
    EXPECT_EQ(countdownOf(state, moment), std::nullopt);

    state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.clear();
    EXPECT_EQ(countdownOf(state, moment), std::nullopt);

    state = stateIn(WorkflowState::focusing);
    state.currentBlock.reset();
    EXPECT_EQ(countdownOf(state, moment), std::nullopt);
}

TEST(WidgetCountdown, isEqualOnlyInEveryField)
{
    const WidgetCountdown one{
        .endsAt = moment, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 1};
    WidgetCountdown other = one;
    EXPECT_EQ(one, other);
    other.endsAt = moment + 1;
    EXPECT_NE(one, other);
    other = one;
    other.startedAt = moment + 1;
    EXPECT_NE(one, other);
    other = one;
    other.isPaused = true;
    EXPECT_NE(one, other);
    other = one;
    other.frozenRemainingSeconds = 2;
    EXPECT_NE(one, other);
}

}  // namespace
}  // namespace quillmere::test
