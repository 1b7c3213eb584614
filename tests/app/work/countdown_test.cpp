// The countdown of a summary, beside the engine's timer.
#include "work/countdown.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

QuillmereState stateWithPauses()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 600;
    return state;
}

// Before the start, at it, after it and after the end, also with the pauses.
constexpr double readings[] = {-1e9, -600, 0, 1, 299, 600, 1000, 1500, 5000, 1e9};

TEST(Countdown, isThatOfTheEngineWheneverTheSummaryWasMade)
{
    for (const QuillmereState& state :
         {stateIn(WorkflowState::focusing), stateWithPauses(), stateIn(WorkflowState::breaking)}) {
        for (const double madeAt : readings) {
            const WidgetSnapshot summary = WidgetSnapshot::make(state, moment + madeAt);
            for (const double now : readings) {
                SCOPED_TRACE(std::to_string(madeAt) + " seen at " + std::to_string(now));
                const workspace::Situation situation{.state = state, .events = {}, .now = moment + now};
                EXPECT_EQ(work::remainingSeconds(summary, moment + now),
                          TimerSnapshot::derive(state, moment + now)->remainingSeconds);
                EXPECT_EQ(work::usedShare(summary, moment + now), work::usedShare(situation));
            }
        }
    }
}

TEST(Countdown, standsStillInAPause)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment + 600;
    const WidgetSnapshot summary = WidgetSnapshot::make(state, moment + 600);
    for (const double now : readings) {
        EXPECT_EQ(work::remainingSeconds(summary, moment + now), 900);
        EXPECT_EQ(work::usedShare(summary, moment + now), 0.4);
    }
}

TEST(Countdown, isAbsentWithoutATimer)
{
    const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::idle), moment);
    EXPECT_EQ(work::remainingSeconds(summary, moment), std::nullopt);
    EXPECT_EQ(work::usedShare(summary, moment), std::nullopt);
}

}  // namespace
}  // namespace quillmere::test
