// The tour: a whole block, played and shown.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Tour, playsAWholeBlockThroughRealFiles)
{
    const Person person;
    const auto directory = person.directory() / "tour";
    const Ending ending = person.runs({"tour", directory.string()});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "");
    const std::string end = "The three files are in " + directory.string() + "\n";
    EXPECT_EQ(ending.out.substr(ending.out.size() - end.size()), end);
    EXPECT_EQ(namesIn(directory),
              (Words{"agent-state.json", "state.json", std::string(WidgetSnapshotStore::fileName)}));

    const QuillmereState state = StateStore(directory, StateStore::renameReplacing).load();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    ASSERT_EQ(state.blockHistory.size(), 1u);
    const Block& block = state.blockHistory.front();
    ASSERT_EQ(block.sessions.size(), 2u);
    // The pause, and the end that the next command recorded.
    EXPECT_EQ(block.sessions[0].accumulatedPausedSeconds, 90);
    EXPECT_EQ(*block.sessions[0].endedAt - block.sessions[0].startedAt, 1590);
    EXPECT_TRUE(block.sessions[1].review);
    EXPECT_TRUE(block.reflection);
    ASSERT_EQ(state.agentQuestions.size(), 1u);
    EXPECT_TRUE(state.agentQuestions[0].answer);
}

TEST(Tour, showsWhatThePersonTheWidgetAndTheAgentSee)
{
    const TimeZone here("UTC");
    const Person person;
    const std::string out = person.runs({"tour", (person.directory() / "tour").string()}).out;
    for (const char* line : {
             "\n  $ quillmere pause\n",
             "\n  $ quillmere break extend 5m\n",
             "\n  $ quillmere answer 1 \"Yes, and tell the team\"\n",
             "\n    The focus session ended at 09:27.\n",
             "\n    The break was over at 09:34.\n",
             "\n  widget: Focus, Session 1 of 2, 15:00 (paused)\n",
             "\n  widget: Break, Break, +01:15\n",
             "\n  agent:  focusing, must not interrupt, 0 open\n",
             "\n  agent:  focusing, may interrupt, 1 open\n",
             "\n  agent:  idle, may interrupt, 0 open\n",
         }) {
        EXPECT_NE(out.find(line), std::string::npos) << line;
    }
}

TEST(Tour, acceptsTheDirectoryAsAnOptionToo)
{
    const Person person;
    EXPECT_EQ(person.types({"tour"}).code, ExitCode::done);
    EXPECT_EQ(person.state().blockHistory.size(), 1u);
}

TEST(Tour, createsATemporaryDirectoryOtherwise)
{
    const Person person;
    const EnvironmentVariable temporary("TMPDIR", person.directory().string());
    const Ending ending = person.runs({"tour"});
    EXPECT_EQ(ending.code, ExitCode::done);
    ASSERT_EQ(person.names().size(), 1u);
    const auto directory = person.directory() / person.names().front();
    EXPECT_EQ(namesIn(directory).size(), 3u);
    EXPECT_NE(ending.out.find(directory.string()), std::string::npos);
}

TEST(Tour, refusesADirectoryWithAState)
{
    const Person person;
    person.has(fullState());
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"tour"}).code, ExitCode::usage);
    EXPECT_EQ(person.runs({"tour", person.directory().string()}).code, ExitCode::usage);
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"tour"}).code, ExitCode::usage);
    EXPECT_EQ(textOf(person.store().stateURL()), "spoilt");
    person.has(fullState());
    EXPECT_EQ(pictureOf(person.directory()).size(), before.size());
}

TEST(Tour, printsOneJsonArrayOfItsSteps)
{
    const Person person;
    const Ending ending = person.types({"tour", "--json"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out.substr(0, 2), "[\n");
    EXPECT_EQ(keysOf(jsonAt("/15", ending.out)),
              (Words{"agent", "at", "command", "person", "remark", "result", "widget"}));
    EXPECT_EQ(jsonAt("/2/at", ending.out), R"("2026-03-02T09:11:00Z")");
    EXPECT_EQ(jsonAt("/2/command", ending.out),
              R"(["--directory",")" + person.directory().string() + R"(","pause"])");
    EXPECT_EQ(jsonAt("/2/result/done", ending.out), R"("Paused.")");
    EXPECT_EQ(jsonAt("/2/person/next", ending.out),
              R"(["resume","end","change","extend","end --at","away"])");
    EXPECT_EQ(jsonAt("/2/widget/time_text", ending.out), R"("15:00")");
    EXPECT_EQ(jsonAt("/2/agent/interruptible", ending.out), "true");
    EXPECT_EQ(jsonAt("/6/result/events/0/event", ending.out), R"("focus_ended")");
    EXPECT_EQ(jsonAt("/15/result/0/id", ending.out), '"' + person.state().blockHistory.at(0).id.text() + '"');
}

TEST(Tour, reportsAsJsonWhyItEndedEarly)
{
    const Person person;
    writeText(person.directory() / "file", "a diary");
    const Ending ending = person.runs({"tour", "--json", (person.directory() / "file").string()});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(jsonAt("/error/case", ending.err), R"("fileError")");
    EXPECT_EQ(jsonAt("/error/message", ending.err),
              "\"The tour ended early, in " + (person.directory() / "file").string() +
                  ". mkdir: File exists: " + (person.directory() / "file").string() + "\"");
}

TEST(Tour, refusesTwoDirectories)
{
    const Person person;
    const Ending ending = person.types({"tour", (person.directory() / "other").string()});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "Two directories are given; name one, as an argument or by --directory.\n");
    EXPECT_EQ(person.names(), Words{});
}

TEST(Tour, asksNothing)
{
    Person person;
    person.isAsked = true;
    EXPECT_EQ(person.types({"tour"}).code, ExitCode::done);
}

TEST(Tour, endsEarlyWithTheCodeOfTheStepThatFailed)
{
    const Person person;
    writeText(person.directory() / "file", "a diary");
    const Ending ending = person.runs({"tour", (person.directory() / "file").string()});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(textOf(person.directory() / "file"), "a diary");
}

}  // namespace
}  // namespace quillmere::test
