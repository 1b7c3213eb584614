// The timer in every situation, compared with the reference model.
#include <quillmere/engine/timer_snapshot.hpp>

#include <gtest/gtest.h>

#include <csignal>

#include "proofs/engine/rules.hpp"
#include "proofs/engine/situations.hpp"
#include "proofs/support/figures.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// All situations, in a scattered order.
Situation drawn(std::uint64_t place)
{
    constexpr std::uint64_t prime = 2'654'435'761;
    return situationAt(place * prime % situationCount());
}

/// The expected timer; absent when none is running.
std::optional<TimerSnapshot> expectedTimer(const std::optional<Reading>& clock)
{
    if (!clock) {
        return std::nullopt;
    }
    return TimerSnapshot{.kind = clock->ofFocus ? TimerKind::focus : TimerKind::breakTime,
                         .elapsedSeconds = clock->elapsed,
                         .remainingSeconds = clock->left,
                         .displaySeconds = clock->left < 0 ? -clock->left : clock->left,
                         .isOvertime = clock->left < 0,
                         .isPaused = clock->isPaused};
}

TEST(TheTimer, showsWhatTheRulesSayInEverySituation)
{
    const std::uint64_t wanted = amount(16'000, situationCount());
    std::uint64_t shown = 0;
    std::uint64_t fatal = 0;
    for (std::uint64_t place = 0; place < wanted && !HasFailure(); ++place) {
        const Situation situation = drawn(place);
        const std::optional<Reading> clock = reading(situation.state, situation.now);
        if (clock && clock->isFatal) {
            ++fatal;
            continue;
        }
        const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(situation.state, situation.now);
        EXPECT_TRUE(timer == expectedTimer(clock))
            << "in workflow state " << static_cast<int>(situation.state.workflowState) << " at "
            << (situation.now - moment);
        shown += timer ? 1 : 0;
    }
    EXPECT_GT(shown, 1'000);
    EXPECT_GT(fatal, 1'000);
    const std::string promise = "The engine against a second statement of its rules";
    reportFigure(promise, "timers compared", wanted - fatal);
    reportFigure(promise, "timers that run, among them", shown);
}

TEST(TheTimerDeathTest, stopsTheProgramWhereTheRulesSaySo)
{
    const std::uint64_t wanted = amount(12, 400);
    std::uint64_t stopped = 0;
    for (std::uint64_t place = 0; place < situationCount() && stopped < wanted; ++place) {
        const Situation situation = drawn(place);
        const std::optional<Reading> clock = reading(situation.state, situation.now);
        if (clock && clock->isFatal) {
            EXPECT_EXIT(TimerSnapshot::derive(situation.state, situation.now),
                        testing::KilledBySignal(SIGABRT), "");
            ++stopped;
        }
    }
    EXPECT_EQ(stopped, wanted);
}

}  // namespace
}  // namespace quillmere::test
