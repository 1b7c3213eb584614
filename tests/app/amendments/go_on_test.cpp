#include "amendments/go_on.hpp"

#include <limits>

#include "amendment_testing.hpp"
#include "amendments/limits.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::goOn;
using amendments::Possible;
using amendments::PossibleLengths;
using enum amendments::TimeSinceEnd;

// A session of 25 minutes that began at `moment` and ran out; two minutes later it goes on.
const Instant bell = moment + 1'500;
const Instant goingOn = bell + 120;

QuillmereState afterTheBell()
{
    return edited(stateIn(WorkflowState::focusing), [](auto& s) { WorkflowEngine().endFocus(s, bell); });
}

std::int64_t remainingSeconds(const QuillmereState& state)
{
    return TimerSnapshot::derive(state, goingOn)->remainingSeconds;
}

TEST(GoOn, countsTheTimeSinceTheEndAsFocus)
{
    QuillmereState expected = stateIn(WorkflowState::focusing);
    expected.currentBlock->sessions.back().plannedDurationSeconds = 2'100;
    expected.updatedAt = goingOn;
    const QuillmereState state =
        amended(afterTheBell(), goingOn, [](auto& s) { goOn(s, 600, countsAsFocus, goingOn); });
    EXPECT_EQ(state, expected);
    EXPECT_EQ(remainingSeconds(state), 480);
}

TEST(GoOn, countsTheTimeSinceTheEndAsAPauseIfAsked)
{
    QuillmereState expected = stateIn(WorkflowState::focusing);
    expected.currentBlock->sessions.back().plannedDurationSeconds = 2'100;
    expected.currentBlock->sessions.back().accumulatedPausedSeconds = 120;
    expected.updatedAt = goingOn;
    const QuillmereState state =
        amended(afterTheBell(), goingOn, [](auto& s) { goOn(s, 600, countsAsPause, goingOn); });
    EXPECT_EQ(state, expected);
    EXPECT_EQ(remainingSeconds(state), 600);
}

TEST(GoOn, continuesASessionThatWasEndedByHand)
{
    const QuillmereState slip =
        edited(stateIn(WorkflowState::focusing), [](auto& s) { WorkflowEngine().endFocus(s, moment + 60); });
    const QuillmereState state =
        amended(slip, goingOn, [](auto& s) { goOn(s, 600, countsAsPause, goingOn); });
    EXPECT_EQ(remainingSeconds(state), 1'500 - 60 + 600);
}

TEST(GoOn, makesNoSessionShorter)
{
    const QuillmereState slip =
        edited(stateIn(WorkflowState::focusing), [](auto& s) { WorkflowEngine().endFocus(s, moment + 60); });
    EXPECT_EQ(refusal(slip, [](auto& s) { goOn(s, -60, countsAsPause, goingOn); }).possible(),
              Possible(PossibleLengths{1, amendments::longestDuration - 1'500}));
}

TEST(GoOn, addsNoPauseWhenTheClockWasSetBack)
{
    const QuillmereState state =
        amended(afterTheBell(), moment, [](auto& s) { goOn(s, 60, countsAsPause, moment); });
    EXPECT_EQ(state.currentSession()->accumulatedPausedSeconds, 0);
}

TEST(GoOn, refusesAnExtensionThatIsOverAlready)
{
    const amendments::Refusal refused =
        refusal(afterTheBell(), [](auto& s) { goOn(s, 120, countsAsFocus, goingOn); });
    EXPECT_STREQ(
        refused.what(),
        "The session cannot go on for that long: the time since its end counts as focus, and 366 days "
        "are the most. Possible: another length, or that time as a pause.");
    EXPECT_EQ(refused.possible(), Possible(PossibleLengths{121, amendments::longestDuration - 1'500}));
    const QuillmereState state =
        amended(afterTheBell(), goingOn, [](auto& s) { goOn(s, 121, countsAsFocus, goingOn); });
    EXPECT_EQ(remainingSeconds(state), 1);
}

TEST(GoOn, refusesExtensionsBeyondTheLimits)
{
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const double by : {0.0, 0.5, -60.0, amendments::longestDuration - 1'499, noNumber}) {
        const amendments::Refusal refused =
            refusal(afterTheBell(), [&](auto& s) { goOn(s, by, countsAsPause, goingOn); });
        EXPECT_STREQ(
            refused.what(),
            "The session cannot go on for that long: 366 days are the most. Possible: another length.");
        EXPECT_EQ(refused.possible(), Possible(PossibleLengths{1, amendments::longestDuration - 1'500}));
    }
}

TEST(GoOn, refusesAPauseBeyondTheLimits)
{
    const Instant tooLate = bell + amendments::longestSum + 1;
    EXPECT_EQ(
        refused(afterTheBell(), [&](auto& s) { goOn(s, 60, countsAsPause, tooLate); }),
        "The time since the end is too long for a pause. Possible: that time as focus, or a review of the "
        "session as it ended.");
}

TEST(GoOn, isRefusedAfterTheReview)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::breaking), [](auto& s) { goOn(s, 60, countsAsFocus, goingOn); }),
              "No session that has ended waits for its review.");
    QuillmereState reviewed = afterTheBell();
    reviewed.currentBlock->sessions.back().review = sampleReview(1);
    EXPECT_EQ(refused(reviewed, [](auto& s) { goOn(s, 60, countsAsFocus, goingOn); }),
              "No session that has ended waits for its review.");
}

}  // namespace
}  // namespace quillmere::test
