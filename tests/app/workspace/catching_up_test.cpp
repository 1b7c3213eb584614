// Events of the time since a state was saved.
#include "workspace/catching_up.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using workspace::catchUp;
using workspace::Event;

/// The event that catching up records; fails the test unless there is exactly one.
Event eventOf(QuillmereState& state, Instant now)
{
    const std::vector<Event> events = catchUp(state, now);
    EXPECT_EQ(events.size(), 1u);
    return events.empty() ? Event{Event::Kind::blockStarted, Instant(0)} : events.front();
}

TEST(CatchUp, doesNothingWhileTimeIsLeft)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = stateIn(workflowState);
        const QuillmereState before = state;
        EXPECT_TRUE(catchUp(state, moment + 299).empty());
        EXPECT_EQ(state, before);
    }
}

TEST(CatchUp, endsAFocusSessionWhenItRanOut)
{
    for (const double late : {0.0, 1.0, 59.0, 86'400.0, 1e9}) {
        QuillmereState state = stateIn(WorkflowState::focusing);
        const Event event = eventOf(state, moment + 1500 + late);
        EXPECT_EQ(event.kind, Event::Kind::focusEnded);
        EXPECT_EQ(event.at, moment + 1500);
        EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
        EXPECT_EQ(state.currentSession()->endedAt, moment + 1500);
        EXPECT_EQ(state.updatedAt, moment + 1500);
    }
}

TEST(CatchUp, addsThePausesToTheEndOfASession)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 240;
    EXPECT_EQ(eventOf(state, moment + 9999).at, moment + 1740);
    EXPECT_EQ(state.currentSession()->endedAt, moment + 1740);
}

TEST(CatchUp, leavesAPausedSessionAloneHoweverLateItIs)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment + 1499;
    EXPECT_TRUE(catchUp(state, moment + 1e9).empty());
    EXPECT_EQ(state.workflowState, WorkflowState::focusing);
}

TEST(CatchUp, endsASessionThatWasPausedAfterItHadRunOut)
{
    // By another program, which did not evaluate the timer first.
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment + 1600;
    EXPECT_EQ(eventOf(state, moment + 9999).at, moment + 1500);
    EXPECT_EQ(state.currentSession()->endedAt, moment + 1500);
    EXPECT_EQ(state.currentSession()->pausedAt, std::nullopt);
    EXPECT_EQ(state.currentSession()->accumulatedPausedSeconds, 0);
}

TEST(CatchUp, recordsTheEndOfABreakOnceAndLetsItGoOn)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    const Event event = eventOf(state, moment + 4000);
    EXPECT_EQ(event.kind, Event::Kind::breakEnded);
    EXPECT_EQ(event.at, moment + 300);
    EXPECT_EQ(state.breakEndNotifiedAt, moment + 300);
    EXPECT_EQ(state.workflowState, WorkflowState::breaking);
    EXPECT_TRUE(catchUp(state, moment + 5000).empty());
}

TEST(CatchUp, recordsTheEndAgainAfterAnExtension)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    catchUp(state, moment + 310);
    WorkflowEngine().extendBreak(state, 120, moment + 320);
    EXPECT_TRUE(catchUp(state, moment + 419).empty());
    EXPECT_EQ(eventOf(state, moment + 4000).at, moment + 420);
    EXPECT_EQ(state.breakEndNotifiedAt, moment + 420);
}

TEST(CatchUp, neverRecordsAnEndBeforeTheLastChange)
{
    // The extension was over before it was asked for.
    QuillmereState state = stateIn(WorkflowState::breaking);
    catchUp(state, moment + 400);
    WorkflowEngine().extendBreak(state, 30, moment + 400);
    EXPECT_EQ(eventOf(state, moment + 4000).at, moment + 400);
}

TEST(CatchUp, neverRecordsAnEndInTheFuture)
{
    // Another program paused the session after it had run out; then the clock was set back to before its end.
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment + 1600;
    EXPECT_EQ(eventOf(state, moment + 1000).at, moment + 1000);
}

TEST(CatchUp, recordsAnEndAtItsInstantAlsoWhenTheLastChangeIsInTheFuture)
{
    // The clock was set back after the last change.
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.updatedAt = moment + 50'000;
    EXPECT_EQ(eventOf(state, moment + 2000).at, moment + 1500);
}

TEST(CatchUp, waitsAgainAfterTheClockWasSetBack)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    EXPECT_TRUE(catchUp(state, moment - 86'400).empty());
    EXPECT_EQ(state, stateIn(WorkflowState::focusing));
}

TEST(CatchUp, beginsAScheduledBlockThatIsDue)
{
    QuillmereState state = stateWithScheduledBlock();
    EXPECT_TRUE(catchUp(state, moment + 3599).empty());
    const Event event = eventOf(state, moment + 3600);
    EXPECT_EQ(event.kind, Event::Kind::blockStarted);
    EXPECT_EQ(event.at, moment + 3600);
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, moment + 3600);
}

}  // namespace
}  // namespace quillmere::test
