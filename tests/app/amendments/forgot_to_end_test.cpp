#include "amendments/forgot_to_end.hpp"

#include <limits>

#include "amendment_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::forgotToEnd;
using amendments::Possible;
using amendments::PossibleTimes;

/// A session that runs since `moment`, with a minute of finished pauses.
QuillmereState running()
{
    return edited(stateIn(WorkflowState::focusing),
                  [](auto& s) { s.currentBlock->sessions.back().accumulatedPausedSeconds = 60; });
}

QuillmereState pausedAfterTenMinutes()
{
    return edited(running(), [](auto& s) { WorkflowEngine().pauseFocus(s, moment + 600); });
}

QuillmereState ended()
{
    return edited(running(), [](auto& s) { WorkflowEngine().endFocus(s, moment + 900); });
}

TEST(ForgotToEnd, endsARunningSessionAtThatTime)
{
    QuillmereState expected = running();
    WorkflowEngine().endFocus(expected, moment + 300);
    expected.updatedAt = later;
    EXPECT_EQ(amended(running(), later, [](auto& s) { forgotToEnd(s, moment + 300, later); }), expected);
}

TEST(ForgotToEnd, endsAPausedSessionWithItsPause)
{
    QuillmereState expected = pausedAfterTenMinutes();
    WorkflowEngine().endFocus(expected, moment + 700);
    expected.updatedAt = later;
    EXPECT_EQ(amended(pausedAfterTenMinutes(), later, [](auto& s) { forgotToEnd(s, moment + 700, later); }),
              expected);
}

TEST(ForgotToEnd, movesTheEndOfASessionBeforeItsReview)
{
    for (const double seconds : {60.0, 300.0, 1'200.0}) {
        QuillmereState expected = ended();
        expected.currentBlock->sessions.back().endedAt = moment + seconds;
        expected.updatedAt = later;
        EXPECT_EQ(amended(ended(), later, [&](auto& s) { forgotToEnd(s, moment + seconds, later); }),
                  expected);
    }
}

TEST(ForgotToEnd, refusesAnEndOutsideTheSession)
{
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const QuillmereState& state : {running(), ended()}) {
        for (const Instant end : {moment + 59, later + 1, Instant(noNumber)}) {
            const amendments::Refusal refused = refusal(state, [&](auto& s) { forgotToEnd(s, end, later); });
            EXPECT_STREQ(refused.what(),
                         "The session cannot have ended then: not before its start plus its pauses, and not "
                         "after now. Of finished pauses only the sum is known.");
            EXPECT_EQ(refused.possible(), Possible(PossibleTimes{moment + 60, later}));
        }
    }
}

TEST(ForgotToEnd, refusesAnEndBeforeARunningPause)
{
    const amendments::Refusal refused =
        refusal(pausedAfterTenMinutes(), [](auto& s) { forgotToEnd(s, moment + 599, later); });
    EXPECT_STREQ(refused.what(),
                 "The session cannot have ended then: not before its start plus its pauses, not before the "
                 "running pause, and not after now. Of finished pauses only the sum is known.");
    EXPECT_EQ(refused.possible(), Possible(PossibleTimes{moment + 600, later}));
}

TEST(ForgotToEnd, namesNoTimeWhenTheClockWasSetBackBeforeTheStart)
{
    EXPECT_EQ(refusal(running(), [](auto& s) { forgotToEnd(s, moment, moment - 60); }).possible(),
              Possible());
}

TEST(ForgotToEnd, isRefusedAfterTheReview)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::breaking), [](auto& s) { forgotToEnd(s, moment, later); }),
              "No session is running, and none waits for its review.");
}

}  // namespace
}  // namespace quillmere::test
