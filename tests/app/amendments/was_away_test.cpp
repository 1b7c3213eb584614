#include "amendments/was_away.hpp"

#include <limits>

#include "amendment_testing.hpp"
#include "amendments/limits.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::Possible;
using amendments::PossibleLengths;
using amendments::PossibleTimes;
using amendments::wasAway;

/// Runs since `moment`.
QuillmereState session() { return stateIn(WorkflowState::focusing); }

QuillmereState pausedSession()
{
    return edited(session(), [](auto& s) { WorkflowEngine().pauseFocus(s, moment + 600); });
}

QuillmereState withPauses(QuillmereState state, double seconds)
{
    state.currentBlock->sessions.back().accumulatedPausedSeconds = seconds;
    state.updatedAt = later;
    return state;
}

TEST(WasAway, addsTheTimeToThePauses)
{
    EXPECT_EQ(amended(withPauses(session(), 60), later,
                      [](auto& s) { wasAway(s, moment + 300, moment + 400, later); }),
              withPauses(session(), 160));
}

TEST(WasAway, lastsUntilNowOrUntilTheRunningPause)
{
    EXPECT_EQ(amended(session(), later, [](auto& s) { wasAway(s, moment + 300, {}, later); }),
              withPauses(session(), 900));
    EXPECT_EQ(amended(pausedSession(), later, [](auto& s) { wasAway(s, moment + 300, {}, later); }),
              withPauses(pausedSession(), 300));
}

TEST(WasAway, mayBeTheWholeSession)
{
    EXPECT_EQ(amended(session(), later, [](auto& s) { wasAway(s, moment, later, later); }),
              withPauses(session(), 1'200));
}

TEST(WasAway, refusesATimeOutsideTheSession)
{
    const Instant noNumber(std::numeric_limits<double>::quiet_NaN());
    const std::pair<Instant, Instant> times[] = {
        {moment - 1, moment + 60}, {moment + 60, moment + 60}, {moment + 60, moment + 30},
        {moment + 60, later + 1},  {noNumber, later},          {moment, noNumber},
    };
    for (const auto& [from, to] : times) {
        const amendments::Refusal refused =
            refusal(session(), [from = from, to = to](auto& s) { wasAway(s, from, to, later); });
        EXPECT_STREQ(refused.what(), "That time has to lie between the start of the session and now.");
        EXPECT_EQ(refused.possible(), Possible(PossibleTimes{moment, later}));
    }
}

TEST(WasAway, refusesATimeInTheRunningPause)
{
    const amendments::Refusal refused =
        refusal(pausedSession(), [](auto& s) { wasAway(s, moment + 300, moment + 601, later); });
    EXPECT_STREQ(refused.what(),
                 "That time has to lie between the start of the session and its running pause.");
    EXPECT_EQ(refused.possible(), Possible(PossibleTimes{moment, moment + 600}));
}

TEST(WasAway, refusesMoreThanTheSessionHasRunWithoutItsPauses)
{
    const amendments::Refusal refused =
        refusal(withPauses(session(), 1'000), [](auto& s) { wasAway(s, moment, moment + 201, later); });
    EXPECT_STREQ(refused.what(),
                 "Together with the finished pauses, that is longer than the session has run. Possible: a "
                 "shorter time.");
    EXPECT_EQ(refused.possible(), Possible(PossibleLengths{0, 200}));
    amended(withPauses(session(), 1'000), later, [](auto& s) { wasAway(s, moment, moment + 200, later); });
}

TEST(WasAway, keepsTheSumOfPausesWithinTheLimits)
{
    const Instant tooLate = moment + 2 * amendments::longestSum;
    EXPECT_EQ(refusal(session(), [&](auto& s) { wasAway(s, moment, tooLate, tooLate); }).possible(),
              Possible(PossibleLengths{0, amendments::longestSum}));
}

TEST(WasAway, isRefusedWhereNoSessionRuns)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::sessionReview), [](auto& s) { wasAway(s, moment, {}, later); }),
              "No focus session is running.");
}

}  // namespace
}  // namespace quillmere::test
