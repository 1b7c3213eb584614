// Summaries that a killed run left behind, and how the next tick repairs them.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// A person in focus, ten minutes after the files were written.
Person personInFocus()
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 600;
    return person;
}

fs::path widgetFile(const Person& person) { return person.directory() / WidgetSnapshotStore::fileName; }

/// Whether a tick makes the three files agree and a second one then writes nothing.
void expectRepaired(const Person& person)
{
    const std::string state = textOf(person.store().stateURL());
    const Ending ending = person.types({"tick"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out + ending.err, "");
    EXPECT_EQ(textOf(person.store().stateURL()), state);
    EXPECT_TRUE(filesAgree(person));
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, restoresASummaryThatIsMissing)
{
    for (const char* name : {"agent-state.json", "widget-snapshot.json"}) {
        SCOPED_TRACE(name);
        const Person person = personInFocus();
        fs::remove(person.directory() / name);
        expectRepaired(person);
    }
}

TEST(Tick, restoresASummaryThatCannotBeRead)
{
    for (const char* name : {"agent-state.json", "widget-snapshot.json"}) {
        for (const char* text : {"", "{}", "spoilt"}) {
            SCOPED_TRACE(std::string(name) + " " + text);
            const Person person = personInFocus();
            writeText(person.directory() / name, text);
            expectRepaired(person);
        }
    }
}

TEST(Tick, restoresSummariesThatAreOlderThanTheState)
{
    const Person person = personInFocus();
    QuillmereState later = stateIn(WorkflowState::sessionReview);
    later.updatedAt = moment + 500;
    writeText(person.store().stateURL(), std::string(StateStore::encoder().encode(later).view()));
    expectRepaired(person);
}

TEST(Tick, restoresAWidgetSummaryThatIsOlderThanTheStateInTheSameSecond)
{
    const Person person = personInFocus();
    person.store().save(stateIn(WorkflowState::sessionReview));
    expectRepaired(person);
}

TEST(Tick, restoresSummariesWhenTheClockWasSetBack)
{
    Person person = personInFocus();
    person.now = moment - 86'400;
    fs::remove(widgetFile(person));
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    EXPECT_EQ(person.widgetSummary(), WidgetSnapshot::make(person.state(), moment));
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, leavesSummariesAloneThatOnlyGrewOld)
{
    Person person = personInFocus();
    person.types({"pause"});
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.typesLater(86'400, {"tick"}).code, ExitCode::done);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, leavesTheWidgetSummaryOfANewerProgramAlone)
{
    const Person person = personInFocus();
    const fs::path file = widgetFile(person);
    writeText(file, replaced(textOf(file), R"("schema_version":1)", R"("schema_version":2)"));
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Tick, restoresTheWidgetSummaryInTheSharedContainer)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", person.directory().string());
    person.runs({"ask", "Why?"});
    fs::remove_all(person.directory() / "group-containers");
    EXPECT_EQ(person.runs({"tick"}).code, ExitCode::done);
    EXPECT_EQ(person.runs({"widget"}).out.find("Asked: Why?\n"),
              std::string("Idle  No active block\n").size());
}

TEST(Tick, writesNothingForANewPerson)
{
    const Person person;
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    EXPECT_EQ(person.runs({"--directory", (person.directory() / "new").string(), "tick"}).code,
              ExitCode::done);
    EXPECT_EQ(person.names(), Words{});
}

TEST(Tick, saysWhichSummaryCannotBeRestored)
{
    const Person person = personInFocus();
    fs::remove(widgetFile(person));
    fs::create_directory(widgetFile(person));
    const Ending ending = person.types({"tick"});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.err, "The state is as it was; " + widgetFile(person).string() +
                              " could not be written: Is a directory. quillmere tick tries again.\n");
}

}  // namespace
}  // namespace quillmere::test
