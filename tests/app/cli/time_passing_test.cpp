// Timers that ran out between two commands.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Tick, recordsTheEndOfASessionAtItsInstant)
{
    const TimeZone here("Europe/Berlin");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(86'400, {"tick"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, "The focus session ended at 2026-11-15 16:25.\n");
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 1500);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Tick, printsTheDayOfAnEventOnlyWhenItIsAnotherDay)
{
    const TimeZone here("Europe/Berlin");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    EXPECT_EQ(person.typesLater(7 * 3600, {"tick"}).err, "The focus session ended at 16:25.\n");
}

TEST(Tick, recordsTheEndOfABreakOnce)
{
    const TimeZone here("Europe/Berlin");
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    EXPECT_EQ(person.typesLater(400, {"tick"}).err, "The break was over at 16:05.\n");
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 300);
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.typesLater(400, {"tick"}).err, "");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, printsTheEventsAsJson)
{
    Person person;
    EXPECT_EQ(person.types({"tick", "--json"}).out, "{\n  \"events\": []\n}\n");
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(1500, {"--json", "tick"});
    EXPECT_EQ(jsonAt("", ending.out), R"({"events":[{"at":"2026-11-15T15:25:00Z","event":"focus_ended"}]})");
    EXPECT_EQ(ending.err, "");
}

TEST(TimeThatPassed, isRecordedBeforeTheCommand)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(2000, {"review", "--completion", "yes", "--next-outcome", "More",
                                                   "--next-energy", "4", "--next-morale", "3"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "The focus session ended at 15:25.\n");
    const QuillmereState state = person.state();
    EXPECT_EQ(state.currentBlock->sessions.back().endedAt, moment + 1500);
    EXPECT_EQ(state.breakStartedAt, moment + 2000);
    EXPECT_TRUE(filesAgree(person));
}

TEST(TimeThatPassed, isRecordedAlsoWhenTheCommandIsRefused)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(2000, {"pause"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(
        ending.err,
        "The focus session ended at 15:25.\n"
        "This action is not available in the current workflow state. There is no running session to "
        "pause: session 1 of 3 waits for its review. Possible: review, review --finish, change, extend, "
        "end --at.\n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_TRUE(filesAgree(person));
}

}  // namespace
}  // namespace quillmere::test
