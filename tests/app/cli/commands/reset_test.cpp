// The way out of states that no step leads on from.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

Person personWhoIsStuck()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::complete);
    state.currentBlock = blockInWork(1, 2);
    person.has(state);
    return person;
}

TEST(Reset, keepsABlockWithSessionsInTheHistory)
{
    const Person person = personWhoIsStuck();
    const Ending ending = person.types({"--json", "reset", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(jsonAt("/done", ending.out), R"("The work is reset.")");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_FALSE(person.state().currentBlock);
    EXPECT_EQ(person.state().blockHistory.size(), 1u);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Reset, isAskedFirst)
{
    Person person = personWhoIsStuck();
    const std::string question =
        "Reset the work? A block with sessions goes into the history, one without is dropped, and nothing is "
        "planned then. Versions keep the present state.";
    expectRefusal(person, {"reset"},
                  "There is no terminal to confirm on: say --yes. The question is: " + question,
                  ExitCode::usage);
    person.isAsked = true;
    person.answers = "no\n";
    const Ending ending = person.types({"reset"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err, question + " (yes, no) Nothing was changed.\n");
    person.answers = "yes\n";
    EXPECT_EQ(person.types({"reset"}).code, ExitCode::done);
}

TEST(Reset, isOfferedWhereNothingElseIs)
{
    EXPECT_NE(personWhoIsStuck().types({"status"}).out.find("Next: reset\n"), std::string::npos);
}

TEST(Reset, isRefusedWhereTheWorkCanGoOn)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    expectRefusal(person, {"reset", "--yes"},
                  "The work can go on from here, so that nothing has to be reset: the break runs until "
                  "15:05. Possible: break end, break extend, finish, change.");
}

TEST(Reset, asksNothingWhereTheWorkCanGoOn)
{
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    person.isAsked = true;
    const Ending ending = person.types({"reset"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_TRUE(ending.err.starts_with("The work can go on from here")) << ending.err;
}

}  // namespace
}  // namespace quillmere::test
