// A focus session in one line.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

const Words nowOutline = {"now", "Outline", "--energy", "4", "--morale", "2"};

TEST(Now, beginsABlockOfOneSessionAndItsFocus)
{
    const Person person;
    const Ending ending = person.types(nowOutline);
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("Focus.\n\nFocus  Session 1 of 1\n25:00  ")) << ending.out;
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::focusing);
    const Block& block = *state.currentBlock;
    EXPECT_EQ(block.cycleCount, 1);
    EXPECT_EQ(block.focusDurationSeconds, 1500);
    ASSERT_EQ(block.outcomes.size(), 1u);
    EXPECT_EQ(block.outcomes[0].title, "Outline");
    const SessionPlan& plan = block.sessions.at(0).plan;
    EXPECT_EQ(plan.intendedOutcome, "Outline");
    EXPECT_EQ(plan.blockOutcomeID, block.outcomes[0].id);
    EXPECT_EQ(plan.energy, 4);
    EXPECT_EQ(plan.morale, 2);
    EXPECT_EQ(block.sessions[0].startedAt, moment);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Now, isOneChangeThatOneStepUndoes)
{
    const Person person;
    person.has(stateIn(WorkflowState::idle));
    person.types(nowOutline);
    const Ending undone = person.types({"undo", "--yes"});
    EXPECT_TRUE(undone.out.starts_with("Undone: block begun: Outline; focus session 1 started ("))
        << undone.out;
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_FALSE(person.state().currentBlock);
    EXPECT_EQ(person.types({"undo", "--yes"}).code, ExitCode::refused);
}

TEST(Now, startsTheNextSessionOfTheBlock)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    const Block before = *person.state().currentBlock;
    EXPECT_EQ(person.types(nowOutline).code, ExitCode::done);
    Block after = *person.state().currentBlock;
    ASSERT_EQ(after.sessions.size(), before.sessions.size() + 1);
    EXPECT_EQ(after.sessions.back().plan.intendedOutcome, "Outline");
    EXPECT_EQ(after.sessions.back().plan.blockOutcomeID, std::nullopt);
    after.sessions.pop_back();
    EXPECT_EQ(after, before);
}

TEST(Now, takesRatingsAndTheRestFromASavedPlan)
{
    const Person person;
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = samplePlan(5);
    person.has(state);
    EXPECT_EQ(person.types({"now", "Outline"}).code, ExitCode::done);
    SessionPlan expected = samplePlan(5);
    expected.intendedOutcome = "Outline";
    EXPECT_EQ(person.state().currentSession()->plan, expected);
}

TEST(Now, lastsAsLongAsIsSaid)
{
    Words words = nowOutline;
    words.insert(words.end(), {"--for", "50m"});
    const Person alone;
    EXPECT_EQ(alone.types(words).code, ExitCode::done);
    EXPECT_EQ(alone.state().currentBlock->focusDurationSeconds, 3000);
    EXPECT_EQ(alone.state().currentSession()->plannedDurationSeconds, 3000);
    const Person next;
    next.has(stateIn(WorkflowState::sessionPlanning));
    EXPECT_EQ(next.types(words).code, ExitCode::done);
    EXPECT_EQ(next.state().currentBlock->focusDurationSeconds, 1500);
    EXPECT_EQ(next.state().currentSession()->plannedDurationSeconds, 3000);
    words.back() = "25m";
    const Person usual;
    usual.has(stateIn(WorkflowState::sessionPlanning));
    EXPECT_EQ(usual.types(words).code, ExitCode::done);
    EXPECT_EQ(usual.state().currentSession()->plannedDurationSeconds, 1500);
    words.back() = "long";
    expectRefusal(Person(), words,
                  "--for: \"long\" is no duration from 1 second to 366 days, such as 25m or 1h30m.",
                  ExitCode::usage);
}

TEST(Now, isRefusedWhileAScheduledBlockWaits)
{
    const TimeZone here("UTC");
    const Person person;
    person.has(stateWithScheduledBlock());
    const char* const message =
        "A block is scheduled for 16:00. Possible: start, which begins it now, or cancel, which discards it.";
    expectRefusal(person, nowOutline, message, ExitCode::refused);
    expectRefusal(person, {"now", "Outline"}, message, ExitCode::refused);
}

TEST(Now, namesTheRatingsThatAreMissing)
{
    const Person person;
    expectRefusal(person, {"now", "Outline"},
                  "The session needs your own rating: say --energy and --morale, 1 to 5.", ExitCode::usage);
    expectRefusal(person, {"now", "Outline", "--energy", "3"},
                  "The session needs your own rating: say --morale, 1 to 5.", ExitCode::usage);
    EXPECT_EQ(person.types({"now", "Outline", "--energy", "6", "--morale", "3"}).code, ExitCode::refused);
    EXPECT_EQ(person.names(), Words{});
}

TEST(Now, needsAnOutcome)
{
    const Person person;
    for (const Words& words : {Words{"now"}, Words{"now", ""}, Words{"now", " "}}) {
        EXPECT_EQ(person.types(words).code, ExitCode::usage);
    }
    EXPECT_EQ(person.types({"now", " "}).err, "outcome: is empty (quillmere now --help)\n");
}

TEST(Now, isRefusedByTheEngineWhereNoSessionCanStart)
{
    for (const WorkflowState state :
         {WorkflowState::blockPlanning, WorkflowState::focusing, WorkflowState::sessionReview,
          WorkflowState::breaking, WorkflowState::blockReview}) {
        const Person person;
        person.has(stateIn(state));
        const Ending ending = person.types({"now", "Outline"});
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_NE(ending.err.find("Possible: "), std::string::npos) << ending.err;
    }
}

}  // namespace
}  // namespace quillmere::test
