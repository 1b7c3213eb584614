// Restoring a version goes the way of every change: caught up, saved once, all files alike.
#include "program_testing.hpp"
#include "workspace/state_home.hpp"
#include "workspace/versions.hpp"
#include "workspace/workspace_of.hpp"

namespace quillmere::test {
namespace {

using workspace::Event;
using workspace::Version;

/// A person who paused a focus session ten minutes after its start. Version 1 is the running session.
Person personWithRunningVersion()
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(600, {"pause"});
    return person;
}

/// Restores version 1; returns the printed status.
std::string restoredStatus(Person& person, double secondsLater)
{
    const Ending ending = person.typesLater(secondsLater, {"restore", "1", "--yes", "--json"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    return jsonAt("/status", ending.out);
}

TEST(Restore, printsWhatItSavesForTheWidgetAndTheAgent)
{
    Person person = personWithRunningVersion();
    const std::string status = restoredStatus(person, 100);
    EXPECT_TRUE(filesAgree(person));
    EXPECT_EQ(jsonAt("/widget", status),
              jsonAt("", textOf(person.directory() / WidgetSnapshotStore::fileName)));
    EXPECT_EQ(jsonAt("/time_text", status), R"("13:20")");
    EXPECT_EQ(jsonAt("/remaining_seconds", textOf(person.store().agentStateURL())), "800");
}

TEST(Restore, savesTheEndOfASessionThatRanOutSinceTheVersion)
{
    Person person = personWithRunningVersion();
    const std::string status = restoredStatus(person, 5'000);
    EXPECT_EQ(jsonAt("/workflow_state", status), R"("sessionReview")");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 1'500);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Restore, reportsTheEventsThatItRecords)
{
    const TimeZone here("UTC");
    Person person = personWithRunningVersion();
    EXPECT_EQ(person.typesLater(5'000, {"restore", "1", "--yes"}).err, "The focus session ended at 15:25.\n");
}

TEST(Restore, setsUpdatedAtToThePresent)
{
    Person person = personWithRunningVersion();
    restoredStatus(person, 100);
    EXPECT_EQ(person.state().updatedAt, moment + 700);
}

TEST(Restore, neverSetsUpdatedAtBack)
{
    // The clock was set back after the pause.
    Person person = personWithRunningVersion();
    const Instant before = person.state().updatedAt;
    restoredStatus(person, -300);
    EXPECT_EQ(person.state().updatedAt, before);
    EXPECT_EQ(person.widgetSummary(), WidgetSnapshot::make(person.state(), before));
}

TEST(Restore, namesTheVersionThatCannotBeRead)
{
    const Person person = personWithRunningVersion();
    const Version version = workspaceOf(person).versions().list().at(0);
    writeText(version.file, "spoilt");
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"restore", "1", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::unusableData);
    EXPECT_TRUE(ending.err.starts_with("Version 1 cannot be restored: ")) << ending.err;
    EXPECT_EQ(pictureOf(person.directory()), before);
}

}  // namespace
}  // namespace quillmere::test
