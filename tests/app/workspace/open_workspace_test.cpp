// The workspace of a program that keeps running follows the files and the clock.
#include "workspace/open_workspace.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>

#include "workspace/workspace_of.hpp"

namespace quillmere::test {
namespace {

using workspace::Event;
using workspace::OpenWorkspace;
using workspace::Workspace;

/// Opens the person's files with the person's clock.
OpenWorkspace opened(const Person& person)
{
    return OpenWorkspace(Workspace::in(person.directory(), [&person] { return person.now; }),
                         base::Reach::present);
}

TEST(OpenWorkspace, seesWhatAnotherProgramSaves)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    ASSERT_EQ(person.typesLater(60, {"pause"}).code, ExitCode::done);
    EXPECT_TRUE(open.refresh().empty());
    EXPECT_TRUE(open.situation().state.currentSession()->pausedAt);
}

TEST(OpenWorkspace, writesNothingWhileNoEventHappens)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    const auto before = pictureOf(person.directory());
    person.now = person.now + 600;
    EXPECT_TRUE(open.refresh().empty());
    EXPECT_EQ(open.situation().now, moment + 600);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(OpenWorkspace, recordsAnEventAsTimePasses)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    person.now = moment + 1'600;
    const std::vector<Event> events = open.refresh();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events.front().kind, Event::Kind::focusEnded);
    EXPECT_EQ(events.front().at, moment + 1'500);
    EXPECT_EQ(person.state(), open.situation().state);
    EXPECT_TRUE(open.refresh().empty());
}

TEST(OpenWorkspace, recordsAnEventFromBeforeItWasOpened)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600;
    OpenWorkspace open = opened(person);
    EXPECT_EQ(open.refresh().size(), 1U);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST(OpenWorkspace, returnsTheEventsBeforeARefusedOperationAtTheNextCall)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    person.now = moment + 1'600;
    const auto pause = [](QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); };
    EXPECT_THROW(open.change(pause), WorkflowError);
    EXPECT_EQ(open.refresh().size(), 1U);
    EXPECT_TRUE(open.refresh().empty());
}

TEST(OpenWorkspace, doesNotReturnAnEventThatAnotherProgramRecorded)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    ASSERT_EQ(person.typesLater(1'600, {"tick"}).code, ExitCode::done);
    EXPECT_TRUE(open.refresh().empty());
    EXPECT_EQ(open.situation().state.workflowState, WorkflowState::sessionReview);
}

TEST(OpenWorkspace, keepsTheLastSituationWhenTheFileCannotBeRead)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_THROW(open.refresh(), base::Refusal);
    EXPECT_THROW(open.refresh(), base::Refusal);
    EXPECT_EQ(open.situation().state.workflowState, WorkflowState::focusing);
    EXPECT_EQ(textOf(person.store().stateURL()), "spoilt");
    writeText(person.store().stateURL(), text);
    EXPECT_TRUE(open.refresh().empty());
}

TEST(OpenWorkspace, changesTheFilesAsTheyAreNow)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    EXPECT_TRUE(
        open.change([](QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); })
            .empty());
    EXPECT_EQ(person.state().agentQuestions.size(), 1U);
    EXPECT_TRUE(person.state().currentSession()->pausedAt);
    EXPECT_TRUE(filesAgree(person));
}

TEST(OpenWorkspace, keepsTheFilesWhenTheEngineRefuses)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    OpenWorkspace open = opened(person);
    const auto before = pictureOf(person.directory());
    EXPECT_THROW(
        open.change([](QuillmereState& state, Instant now) { WorkflowEngine().resumeFocus(state, now); }),
        WorkflowError);
    EXPECT_EQ(pictureOf(person.directory()), before);
    EXPECT_TRUE(open.refresh().empty());
}

/// The number of compressed versions.
std::ptrdiff_t compressedVersions(const Workspace& workspace)
{
    const std::vector<workspace::Version> versions = workspace.versions().list();
    return std::count_if(versions.begin(), versions.end(),
                         [](const workspace::Version& version) { return version.isCompressed; });
}

TEST(OpenWorkspace, compressesOneVersionAfterEachSaveOfAnyProgram)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Workspace workspace = workspaceOf(person);
    OpenWorkspace open(workspace, base::Reach::present);
    for (int time = 0; time < 5; ++time) {
        person.typesLater(10, {time % 2 == 0 ? "pause" : "resume"});
        EXPECT_EQ(compressedVersions(workspace), time == 4 ? 1 : 0);
        open.refresh();
        open.compressVersion();
        open.compressVersion();
        EXPECT_EQ(compressedVersions(workspace), time < 3 ? 0 : time - 2);
    }
}

}  // namespace
}  // namespace quillmere::test
