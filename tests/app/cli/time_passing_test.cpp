// Timers that run out between two commands.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Tick, recordsTheEndOfASessionWhenItWas)
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

TEST(Tick, tellsTheDayOfWhatCameAboutOnlyWhenItIsAnother)
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

TEST(Tick, writesNothingWhenNothingCameAbout)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.typesLater(1499, {"tick"}).code, ExitCode::done);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, tellsProgramsWhatCameAbout)
{
    Person person;
    EXPECT_EQ(person.types({"tick", "--json"}).out, "{\n  \"events\": []\n}\n");
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(1500, {"--json", "tick"});
    EXPECT_EQ(jsonAt("", ending.out), R"({"events":[{"at":"2026-11-15T15:25:00Z","event":"focus_ended"}]})");
    EXPECT_EQ(ending.err, "");
}

TEST(TimeThatPassed, isToldBeforeTheCommandIsCarriedOut)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending =
        person.typesLater(2000, {"review", "--completion", "yes", "--next-outcome", "More"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "The focus session ended at 15:25.\n");
    const QuillmereState state = person.state();
    EXPECT_EQ(state.currentBlock->sessions.back().endedAt, moment + 1500);
    EXPECT_EQ(state.breakStartedAt, moment + 2000);
    EXPECT_TRUE(filesAgree(person));
}

TEST(TimeThatPassed, isKeptWhenTheCommandIsRefused)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(2000, {"pause"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err,
              "The focus session ended at 15:25.\n"
              "This action is not available in the current workflow state.\n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_TRUE(filesAgree(person));
}

TEST(TimeThatPassed, isSeenButNotWrittenByThoseWhoOnlyLook)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const auto before = pictureOf(person.directory());
    const std::string json = person.typesLater(2000, {"status", "--json"}).out;
    EXPECT_EQ(jsonAt("/workflow_state", json), R"("sessionReview")");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(TimeThatPassed, duringAPauseDoesNotCount)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(1499, {"pause"});
    EXPECT_EQ(person.typesLater(86'400, {"tick"}).err, "");
    person.types({"resume"});
    EXPECT_EQ(person.typesLater(0.5, {"status", "--json"}).code, ExitCode::done);
    person.typesLater(60, {"tick"});
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 1500 + 86'400);
}

TEST(TimeThatPassed, endsAnExtendedBreakAtItsNewEnd)
{
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    person.typesLater(400, {"break", "extend", "5m"});
    EXPECT_EQ(person.state().breakEndNotifiedAt, std::nullopt);
    person.typesLater(1000, {"tick"});
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 600);
    EXPECT_TRUE(filesAgree(person));
}

}  // namespace
}  // namespace quillmere::test
