#include "amendments/change_length.hpp"

#include <limits>

#include "amendment_testing.hpp"
#include "amendments/limits.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

namespace quillmere::test {
namespace {

using amendments::changeLength;
using amendments::Possible;
using amendments::PossibleLengths;

// A session of 25 minutes that runs since `moment`; ten minutes are used.
const Instant inTheMiddle = moment + 600;

QuillmereState focusing() { return stateIn(WorkflowState::focusing); }

QuillmereState expectedWithLength(double seconds)
{
    QuillmereState state = focusing();
    state.currentBlock->sessions.back().plannedDurationSeconds = seconds;
    state.updatedAt = inTheMiddle;
    return state;
}

TEST(ChangeLength, makesTheRunningSessionLongerOrShorter)
{
    EXPECT_EQ(amended(focusing(), inTheMiddle, [](auto& s) { changeLength(s, 600, inTheMiddle); }),
              expectedWithLength(2'100));
    EXPECT_EQ(amended(focusing(), inTheMiddle, [](auto& s) { changeLength(s, -300, inTheMiddle); }),
              expectedWithLength(1'200));
}

TEST(ChangeLength, leavesASecondToRun)
{
    const QuillmereState state =
        amended(focusing(), inTheMiddle, [](auto& s) { changeLength(s, 601 - 1'500, inTheMiddle); });
    EXPECT_EQ(TimerSnapshot::derive(state, inTheMiddle)->remainingSeconds, 1);
}

TEST(ChangeLength, doesNotCountPausesAsUsed)
{
    QuillmereState state = focusing();
    WorkSession& session = state.currentBlock->sessions.back();
    session.accumulatedPausedSeconds = 60;
    session.pausedAt = moment + 300;
    EXPECT_EQ(refusal(state, [](auto& s) { changeLength(s, 240 - 1'500, inTheMiddle); }).possible(),
              Possible(PossibleLengths{241, amendments::longestDuration}));
}

TEST(ChangeLength, refusesLengthsBeyondWhatIsUsedAndTheLongest)
{
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const double by : {600.0 - 1'500, -1e9, 0.0, amendments::longestDuration - 1'499, noNumber}) {
        const amendments::Refusal refused =
            refusal(focusing(), [&](auto& s) { changeLength(s, by, inTheMiddle); });
        EXPECT_STREQ(
            refused.what(),
            "The session cannot have this length: it can be planned for longer than what is used, and "
            "for 366 days at most.");
        EXPECT_EQ(refused.possible(), Possible(PossibleLengths{601, amendments::longestDuration}));
    }
    amended(focusing(), inTheMiddle,
            [](auto& s) { changeLength(s, amendments::longestDuration - 1'500, inTheMiddle); });
}

TEST(ChangeLength, namesNoLengthWhenNoneIsPossible)
{
    const Instant tooLate = moment + amendments::longestDuration;
    EXPECT_EQ(refusal(focusing(), [&](auto& s) { changeLength(s, 60, tooLate); }).possible(), Possible());
}

TEST(ChangeLength, isRefusedWhereNoSessionRuns)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::breaking), [](auto& s) { changeLength(s, 60, inTheMiddle); }),
              "No focus session is running.");
}

}  // namespace
}  // namespace quillmere::test
