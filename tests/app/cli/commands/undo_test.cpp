// undo takes the last change back, redo makes it again; both ask first.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

class UndoCommand : public testing::Test {
protected:
    UndoCommand()
    {
        person.has(stateIn(WorkflowState::focusing));
        person.typesLater(60, {"pause"});
    }

    bool isPaused() const { return person.state().currentSession()->pausedAt.has_value(); }

    const TimeZone utc{"UTC"};
    Person person;
};

TEST_F(UndoCommand, takesTheLastChangeBack)
{
    const Ending ending = person.types({"undo", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_TRUE(ending.out.starts_with("Undone: focus session 1 paused (15:01)\n\nFocus")) << ending.out;
    EXPECT_FALSE(isPaused());
}

TEST_F(UndoCommand, goesForwardAgainByRedo)
{
    person.types({"undo", "--yes"});
    const Ending ending = person.types({"redo", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_TRUE(ending.out.starts_with("Done again: focus session 1 paused (undone 15:01)\n")) << ending.out;
    EXPECT_TRUE(isPaused());
}

TEST_F(UndoCommand, asksOnATerminalWithTheChangeInWords)
{
    person.isAsked = true;
    person.answers = "no\n";
    const Ending ending = person.types({"undo"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err, "Undo: focus session 1 paused (15:01) (yes, no) Nothing was changed.\n");
    EXPECT_TRUE(isPaused());
    person.answers = "yes\n";
    EXPECT_EQ(person.types({"undo"}).code, ExitCode::done);
    EXPECT_FALSE(isPaused());
}

TEST_F(UndoCommand, requiresYesWithoutATerminal)
{
    const Ending ending = person.types({"undo"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err,
              "There is no terminal to confirm on: say --yes. The question is: Undo: focus session 1 paused "
              "(15:01)\n");
    EXPECT_TRUE(isPaused());
}

TEST_F(UndoCommand, answersProgramsInJson)
{
    const Ending ending = person.types({"undo", "--yes", "--json"});
    EXPECT_EQ(jsonAt("/done", ending.out), R"x("Undone: focus session 1 paused (15:01)")x");
    EXPECT_EQ(jsonAt("/status/workflow_state", ending.out), R"("focusing")");
}

TEST_F(UndoCommand, refusesWhenThereIsNothingToUndoOrRedo)
{
    EXPECT_EQ(person.types({"redo", "--yes"}).err,
              "There is nothing to redo: nothing was undone since the last change.\n");
    person.types({"undo", "--yes"});
    const Ending ending = person.types({"undo", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err, "There is no change to undo: no version from before it is kept.\n");
}

TEST_F(UndoCommand, saysWhyNoVersionsAreKept)
{
    // The versions would lie among the files.
    const Ending ending = person.runs({"--directory", person.stateHome().string(), "undo", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_TRUE(ending.err.starts_with("No versions are kept: ")) << ending.err;
}

TEST_F(UndoCommand, tellsWhatHappensByItselfAfterIt)
{
    person.has(stateWithScheduledBlock());
    person.types({"cancel"});
    const Ending ending = person.typesLater(4'000, {"undo", "--yes", "--json"});
    EXPECT_EQ(jsonAt("/events/0/event", ending.out), R"("block_started")");
    EXPECT_EQ(jsonAt("/status/workflow_state", ending.out), R"("sessionPlanning")");
}

}  // namespace
}  // namespace quillmere::test
