#include "work/state_change.hpp"

#include "program_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using namespace work;
using workspace::Event;

TEST(News, haveTheStartOfAScheduledBlock)
{
    QuillmereState state = stateWithScheduledBlock();
    const LastShown before = LastShown::of(state);
    WorkflowEngine().evaluateSchedule(state, moment + 3600);
    const std::vector<Event> events = newsSince(before, state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, Event::Kind::blockStarted);
    EXPECT_EQ(events[0].at, moment + 3600);
}

TEST(News, haveTheEndOfASessionWhoseTimeRanOut)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    const LastShown before = LastShown::of(state);
    WorkflowEngine().endFocus(state, moment + 1500);
    const std::vector<Event> events = newsSince(before, state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, Event::Kind::focusEnded);
}

TEST(News, haveTheEndOfASessionOfAPlannedLengthBetweenWholeSeconds)
{
    // The timer counts whole seconds, so a session of 90.7 s ends after 90 s.
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().plannedDurationSeconds = 90.7;
    const LastShown before = LastShown::of(state);
    ASSERT_EQ(workspace::catchUp(state, moment + 3'600).size(), 1U);
    const std::vector<Event> events = newsSince(before, state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, Event::Kind::focusEnded);
    EXPECT_EQ(events[0].at, *state.currentSession()->endedAt);
}

TEST(News, haveTheEndOfABreak)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    const LastShown before = LastShown::of(state);
    WorkflowEngine().evaluateTimer(state, moment + 300);
    ASSERT_EQ(newsSince(before, state).size(), 1U);
    EXPECT_EQ(newsSince(before, state)[0].kind, Event::Kind::breakEnded);
    EXPECT_TRUE(newsSince(LastShown::of(state), state).empty());
}

TEST(News, haveNothingThatAPersonDid)
{
    QuillmereState focusing = stateIn(WorkflowState::focusing);
    const LastShown running = LastShown::of(focusing);
    WorkflowEngine().endFocus(focusing, moment + 60);
    EXPECT_TRUE(newsSince(running, focusing).empty());
    QuillmereState scheduled = stateWithScheduledBlock();
    const LastShown waiting = LastShown::of(scheduled);
    WorkflowEngine().startScheduledBlockNow(scheduled, moment);
    EXPECT_TRUE(newsSince(waiting, scheduled).empty());
    EXPECT_NE(LastShown::of(scheduled), waiting);
}

}  // namespace
}  // namespace quillmere::test
