#include "work/slept_through.hpp"

#include "program_testing.hpp"
#include "workspace/catching_up.hpp"

namespace quillmere::test {
namespace {

using work::sleptThrough;

/// A focus session of 25 minutes that began at `moment`.
QuillmereState focusing() { return stateIn(WorkflowState::focusing); }

QuillmereState ranOut()
{
    QuillmereState state = focusing();
    workspace::catchUp(state, moment + 5'000);
    return state;
}

constexpr base::Sleep halfAnHour{.from = moment + 600, .to = moment + 2'400};

TEST(SleptThrough, isWhereASessionRunsOrRanOutMeanwhile)
{
    const auto running = sleptThrough(halfAnHour, focusing());
    ASSERT_TRUE(running);
    EXPECT_FALSE(running->isOver);
    EXPECT_EQ(running->sleep, halfAnHour);
    const auto over = sleptThrough(halfAnHour, ranOut());
    ASSERT_TRUE(over);
    EXPECT_TRUE(over->isOver);
    EXPECT_EQ(over->sleep, (base::Sleep{.from = moment + 600, .to = moment + 1'500}));
}

TEST(SleptThrough, beginsNoEarlierThanTheSession)
{
    EXPECT_EQ(sleptThrough({.from = moment - 600, .to = moment + 300}, focusing())->sleep.from, moment);
}

TEST(SleptThrough, isNotOfASessionThatWasPausedOrBeganOrEndedOutsideTheSleep)
{
    QuillmereState paused = focusing();
    paused.currentBlock->sessions.back().pausedAt = moment + 100;
    EXPECT_FALSE(sleptThrough(halfAnHour, paused));
    EXPECT_FALSE(sleptThrough({.from = moment - 600, .to = moment}, focusing()));
    EXPECT_FALSE(sleptThrough({.from = moment + 1'600, .to = moment + 2'400}, ranOut()));
    EXPECT_FALSE(sleptThrough(halfAnHour, stateIn(WorkflowState::breaking)));
    EXPECT_FALSE(sleptThrough(halfAnHour, stateIn(WorkflowState::idle)));
}

TEST(SleptThrough, standsUntilTheSessionIsCorrected)
{
    QuillmereState state = focusing();
    const auto slept = sleptThrough(halfAnHour, state);
    EXPECT_TRUE(work::stands(*slept, state));
    state.currentBlock->sessions.back().accumulatedPausedSeconds += 60;
    EXPECT_FALSE(work::stands(*slept, state));
    EXPECT_FALSE(work::stands(*slept, ranOut()));
}

TEST(SleptThrough, saysFromWhenToWhenAndTheCommandsThatCorrectIt)
{
    const TimeZone here("UTC");
    const auto running = sleptThrough(halfAnHour, focusing());
    EXPECT_EQ(work::sleepText(*running, {moment + 2'400, base::Hours::twelve}),
              "The computer slept from 3:10 pm to 3:40 pm.");
    EXPECT_EQ(work::sleepCommands(*running, moment + 2'400),
              "quillmere away --from 15:10 --to 15:40 makes it a pause; quillmere end --at 15:10 ends the "
              "session then.");
    const auto over = sleptThrough({.from = moment + 600, .to = moment + 90'000}, ranOut());
    EXPECT_EQ(work::sleepCommands(*over, moment + 90'000),
              "quillmere end --at \"2026-11-15 15:10\" ends the session then.");
}

}  // namespace
}  // namespace quillmere::test
