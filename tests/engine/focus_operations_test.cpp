// Running focus sessions: pause, resume and end. Their start is in start_focus_test.cpp, their review in
// session_review_test.cpp.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <cmath>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

void pause(QuillmereState& state) { engine.pauseFocus(state, now); }
void resume(QuillmereState& state) { engine.resumeFocus(state, now); }
void end(QuillmereState& state) { engine.endFocus(state, now); }

TEST(PauseFocus, stampsTheCurrentSessionAndNothingElse)
{
    QuillmereState state = crowdedStateIn(focusing);
    session(state).pausedAt.reset();
    QuillmereState expected = state;
    session(expected).pausedAt = now;
    expected.updatedAt = now;
    pause(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(PauseFocus, isRefusedTheSecondTime)
{
    QuillmereState state = stateIn(focusing);
    pause(state);
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, pause));
}

TEST(ResumeFocus, isRefusedWithoutAPause)
{
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, stateIn(focusing), resume));
}

TEST(ResumeFocus, addsThePauseAndClearsItAndChangesNothingElse)
{
    QuillmereState state = crowdedStateIn(focusing);
    session(state).pausedAt = now - 30;
    QuillmereState expected = state;
    session(expected).pausedAt.reset();
    session(expected).accumulatedPausedSeconds = 42.5 + 30;
    expected.updatedAt = now;
    resume(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(ResumeFocus, addsUpAllPauses)
{
    QuillmereState state = stateIn(focusing);
    engine.pauseFocus(state, moment + 100);
    engine.resumeFocus(state, moment + 130);
    engine.pauseFocus(state, moment + 200);
    engine.resumeFocus(state, moment + 200.75);
    EXPECT_EQ(session(state).accumulatedPausedSeconds, 30.75);
}

/// A pause and the paused seconds that it adds.
struct Pause {
    Instant from;
    Instant to;
    double added;
};

constexpr auto pauses = std::to_array<Pause>({
    {moment, moment + 30, 30},
    {moment, moment + 0.125, 0.125},
    {moment, moment, 0},
    // The clock was set back, by little and by much.
    {moment, moment - 0.125, 0},
    {moment, moment - 86'400, 0},
    {moment, Instant(-infinity), 0},
    // An instant that is not a number adds nothing.
    {moment, noInstant, 0},
    {noInstant, moment, 0},
    {Instant(infinity), Instant(infinity), 0},
});

TEST(ResumeFocus, addsTheLengthOfThePauseIfItIsPositive)
{
    for (const auto& [from, to, added] : pauses) {
        SCOPED_TRACE(to - from);
        QuillmereState state = crowdedStateIn(focusing);
        session(state).pausedAt = from;
        engine.resumeFocus(state, to);
        EXPECT_EQ(session(state).accumulatedPausedSeconds, 42.5 + added);
        EXPECT_EQ(session(state).pausedAt, std::nullopt);
    }
}

TEST(EndFocus, closesARunningPauseFirst)
{
    for (const auto& [from, to, added] : pauses) {
        SCOPED_TRACE(to - from);
        QuillmereState state = crowdedStateIn(focusing);
        session(state).pausedAt = from;
        engine.endFocus(state, to);
        EXPECT_EQ(session(state).accumulatedPausedSeconds, 42.5 + added);
        EXPECT_EQ(session(state).pausedAt, std::nullopt);
        ASSERT_TRUE(session(state).endedAt.has_value());
        const bool isNumber = !std::isnan(to.secondsSince1970());
        EXPECT_TRUE(isNumber ? *session(state).endedAt == to
                             : std::isnan(session(state).endedAt->secondsSince1970()));
    }
}

TEST(EndFocus, ofAPausedSessionChangesItsPauseItsEndAndTheWorkflowState)
{
    QuillmereState state = crowdedStateIn(focusing);
    session(state).pausedAt = now - 30;
    QuillmereState expected = state;
    session(expected).pausedAt.reset();
    session(expected).accumulatedPausedSeconds = 42.5 + 30;
    session(expected).endedAt = now;
    expected.workflowState = sessionReview;
    expected.updatedAt = now;
    end(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(EndFocus, ofARunningSessionLeavesItsPausedTimeAsItIs)
{
    QuillmereState state = crowdedStateIn(focusing);
    session(state).pausedAt.reset();
    QuillmereState expected = state;
    session(expected).endedAt = now;
    expected.workflowState = sessionReview;
    expected.updatedAt = now;
    end(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(EndFocus, mayComeBeforeTheTimeIsUpAndAfterIt)
{
    for (const double offset : {0.0, 1.0, 1500.0, 86'400.0, -60.0}) {
        SCOPED_TRACE(offset);
        QuillmereState state = stateIn(focusing);
        engine.endFocus(state, moment + offset);
        EXPECT_EQ(session(state).endedAt, moment + offset);
    }
}

TEST(Focusing, withoutABlockOrASessionRefusesPauseResumeAndEnd)
{
    QuillmereState withoutBlock = crowdedStateIn(focusing);
    withoutBlock.currentBlock.reset();
    QuillmereState withoutSessions = crowdedStateIn(focusing);
    withoutSessions.currentBlock->sessions.clear();
    for (const QuillmereState& state : {withoutBlock, withoutSessions}) {
        SCOPED_TRACE(state.currentBlock ? "no session" : "no block");
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, pause));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, resume));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, end));
    }
}

TEST(Focusing, looksAtTheLastSessionOnly)
{
    // An earlier session that was left paused, as a file might hold it.
    QuillmereState state = stateIn(focusing);
    state.currentBlock = blockInWork(1, 2);
    state.currentBlock->sessions.front().pausedAt = moment - 3000;
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, resume));
    const WorkSession earlier = state.currentBlock->sessions.front();
    pause(state);
    resume(state);
    end(state);
    EXPECT_EQ(state.currentBlock->sessions.front(), earlier);
}

}  // namespace
}  // namespace quillmere::test
