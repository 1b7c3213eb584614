// The files written, and the error reported, when one of the three cannot be written.
#include <quillmere/engine/workflow_engine.hpp>

#include "program_testing.hpp"
#include "workspace/open_workspace.hpp"
#include "workspace/saving.hpp"
#include "workspace/workspace.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using workspace::OpenWorkspace;
using workspace::Workspace;

constexpr const char* summaryNames[] = {"agent-state.json", "widget-snapshot.json"};

/// Puts a directory in the place of a file, so that it cannot be written.
void block(const fs::path& file)
{
    fs::remove(file);
    fs::create_directory(file);
}

std::string couldNotBeWritten(const fs::path& file)
{
    return file.string() + " could not be written: Is a directory";
}

TEST(Saving, writesTheWidgetsSummaryThoughTheAgentsCannotBeWritten)
{
    const Person person;
    block(person.directory() / "agent-state.json");
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::fileError);
    EXPECT_EQ(person.state().agentQuestions.size(), 1u);
    EXPECT_EQ(person.widgetSummary().openQuestionCount, 1);
}

TEST(Saving, writesTheAgentsSummaryThoughTheWidgetsCannotBeWritten)
{
    const Person person;
    block(person.directory() / WidgetSnapshotStore::fileName);
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::fileError);
    EXPECT_EQ(person.agentSummary().openQuestions.size(), 1u);
}

TEST(Saving, namesTheSummaryThatCouldNotBeWrittenAndSaysThatTheChangeIsSaved)
{
    for (const char* name : summaryNames) {
        SCOPED_TRACE(name);
        const Person person;
        block(person.directory() / name);
        EXPECT_EQ(person.types({"ask", "Why?"}).err, "The change itself is saved; " +
                                                         couldNotBeWritten(person.directory() / name) +
                                                         ". quillmere tick tries again.\n");
    }
}

TEST(Saving, namesBothSummariesWhenNeitherCouldBeWritten)
{
    const Person person;
    for (const char* name : summaryNames) {
        block(person.directory() / name);
    }
    EXPECT_EQ(person.types({"ask", "Why?"}).err,
              "The change itself is saved; " + couldNotBeWritten(person.directory() / summaryNames[0]) +
                  "; " + couldNotBeWritten(person.directory() / summaryNames[1]) +
                  ". quillmere tick tries again.\n");
}

TEST(Saving, writesNoSummaryOfAStateThatCouldNotBeWritten)
{
    const Person person;
    const QuillmereState before = stateIn(WorkflowState::focusing);
    person.has(before);
    block(person.store().stateURL());
    const auto picture = pictureOf(person.directory());
    const workspace::FilePlaces places{person.directory(), workspace::WidgetPlace(person.directory()),
                                       workspace::Versions({})};
    workspace::StateLock lock(person.directory(), person.store().stateURL(), [] {});
    const workspace::ReplacedState replaced{person.store().stateURL(), moment, workspace::Keeping::no, lock};
    EXPECT_THROW(workspace::saveAll(places, replaced, stateIn(WorkflowState::idle), moment), base::Refusal);
    auto after = pictureOf(person.directory());
    EXPECT_EQ(after["agent-state.json"], picture.at("agent-state.json"));
    EXPECT_EQ(after["widget-snapshot.json"], picture.at("widget-snapshot.json"));
}

TEST(Saving, saysNothingOfAChangeWhenTheStateCouldNotBeWritten)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    Ending ending{};
    {
        const FileSizeLimit limit(200);
        ending = person.types({"ask", "Why?"});
    }
    EXPECT_EQ(ending.err, person.store().stateURL().string() +
                              " could not be written: File too large; it is as it was.\n");
}

TEST(Saving, leavesEveryFileWholeOnAFullDisk)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const auto before = pictureOf(person.directory());
    {
        const FileSizeLimit limit(200);
        EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::fileError);
    }
    auto after = pictureOf(person.directory());
    EXPECT_EQ(after.size(), before.size());
    for (const char* name : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        EXPECT_EQ(after[name], before.at(name)) << name;
    }
}

TEST(Saving, refusesAStateWhoseSummaryHasNoJsonForm)
{
    // The pauses of this session lead beyond the last year that a date can have. The state must not be saved
    // without its summary.
    const Person person;
    QuillmereState state = stateIn(WorkflowState::focusing);
    person.has(state);
    state.currentBlock->sessions.back().startedAt = Instant(253'402'300'000);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 1e6;
    person.store().save(state);
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::unusableData);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Saving, doesNotCarryOutTheCommandWhenASummaryOfThePassedTimeCouldNotBeWritten)
{
    const TimeZone here("UTC");
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const fs::path file = person.directory() / "agent-state.json";
    block(file);
    const Ending ending = person.typesLater(2000, {"review", "--completion", "yes", "--next-outcome", "More",
                                                   "--next-energy", "4", "--next-morale", "3"});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.err,
              "The focus session ended at 15:25.\n"
              "The time that passed is recorded, and nothing else was done; " +
                  couldNotBeWritten(file) + ". quillmere tick tries again.\n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST(Saving, losesNoEventWhenASummaryCouldNotBeWritten)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open(Workspace::in(person.directory(), [&person] { return person.now; }),
                       base::Reach::years);
    block(person.directory() / "agent-state.json");
    person.now = moment + 1'600;
    EXPECT_THROW(open.refresh(), base::Refusal);
    fs::remove(person.directory() / "agent-state.json");
    EXPECT_EQ(open.refresh().size(), 1U);
    EXPECT_TRUE(open.refresh().empty());
}

}  // namespace
}  // namespace quillmere::test
