#include "ui/news.hpp"

#include "program_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using namespace app::ui;
using app::Event;

const WorkflowEngine engine;

TEST(News, areThatAScheduledBlockBegan)
{
    QuillmereState state = stateWithScheduledBlock();
    const Glimpse before = Glimpse::of(state);
    engine.evaluateSchedule(state, moment + 3600);
    const std::vector<Event> events = newsSince(before, state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, Event::Kind::blockStarted);
    EXPECT_EQ(events[0].at, moment + 3600);
}

TEST(News, areThatASessionRanOut)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    const Glimpse before = Glimpse::of(state);
    engine.endFocus(state, moment + 1500);
    const std::vector<Event> events = newsSince(before, state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, Event::Kind::focusEnded);
}

TEST(News, areThatABreakIsOver)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    const Glimpse before = Glimpse::of(state);
    engine.evaluateTimer(state, moment + 300);
    ASSERT_EQ(newsSince(before, state).size(), 1U);
    EXPECT_EQ(newsSince(before, state)[0].kind, Event::Kind::breakEnded);
    EXPECT_TRUE(newsSince(Glimpse::of(state), state).empty());
}

TEST(News, areNotWhatSomebodyDid)
{
    QuillmereState focusing = stateIn(WorkflowState::focusing);
    const Glimpse running = Glimpse::of(focusing);
    engine.endFocus(focusing, moment + 60);
    EXPECT_TRUE(newsSince(running, focusing).empty());
    QuillmereState scheduled = stateWithScheduledBlock();
    const Glimpse waiting = Glimpse::of(scheduled);
    engine.startScheduledBlockNow(scheduled, moment);
    EXPECT_TRUE(newsSince(waiting, scheduled).empty());
    EXPECT_NE(Glimpse::of(scheduled), waiting);
}

}  // namespace
}  // namespace quillmere::test
