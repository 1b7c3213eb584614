// A scheduled block, changed in one step.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

Person personWithASchedule()
{
    Person person;
    person.has(stateWithScheduledBlock());
    return person;
}

TEST(EditOfASchedule, keepsTheTimeUnlessAnotherIsGiven)
{
    const Person person = personWithASchedule();
    const Ending ending = person.types({"edit", "--why", "Another reason", "--focus", "50m"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The scheduled block is changed.\n\n"));
    Block expected = *stateWithScheduledBlock().currentBlock;
    expected.whyValue = "Another reason";
    expected.focusDurationSeconds = 3000;
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.state().currentBlock, expected);
    EXPECT_TRUE(filesAgree(person));
}

TEST(EditOfASchedule, takesAnotherTime)
{
    const TimeZone here("UTC");
    const Person person = personWithASchedule();
    EXPECT_TRUE(
        person.types({"edit", "--at", "+2h"}).out.starts_with("Scheduled for Sun 15 Nov 2026, 17:00.\n\n"));
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment + 7200);
}

TEST(EditOfASchedule, canBeginTheBlockNow)
{
    const Person person = personWithASchedule();
    const Ending ending = person.types({"edit", "--cycles", "2", "--start"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The block has begun.\n\n"));
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(person.state().currentBlock->cycleCount, 2);
    EXPECT_EQ(person.state().currentBlock->plannedStart, std::nullopt);
}

TEST(EditOfASchedule, asksWithThePresentValuesAsDefaults)
{
    const TimeZone here("UTC");
    Person person = personWithASchedule();
    person.isAsked = true;
    person.answers = "\n\n\n\nRead twice\n\n\n\n\n\n\n\n";
    const Ending ending = person.types({"edit"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err,
              "Enter takes what is in brackets, - clears it, Control-D changes nothing.\n"
              "What should come out of it? [Chapter one] And what else? [Chapter two] And what else? (empty: "
              "nothing) "
              "Why does it matter? [The deadline is near] How will you know that it is done? "
              "[Both chapters read aloud] What could get in the way? [Rewriting the outline] "
              "What can be measured at the end? [2000 words] What else should be at hand? "
              "[Notes are in the blue folder] How long is a focus session? [25m] How long is a break? [5m] "
              "How many focus sessions? [3] 3 \u00D7 25 min, from 16:00 until 17:30\n"
              "When does it begin? (14:30, +1h) [16:00] ");
    Block expected = *stateWithScheduledBlock().currentBlock;
    expected.doneTest = "Read twice";
    EXPECT_EQ(person.state().currentBlock, expected);
}

TEST(EditOfASchedule, needsAnOptionWithoutATerminal)
{
    expectRefusal(personWithASchedule(), {"edit"},
                  "Say what to change, such as --at 15:00 or --focus 50m; quillmere edit --help lists the "
                  "options.",
                  ExitCode::usage);
}

TEST(EditOfASchedule, refusesValuesThatPlanRefuses)
{
    const Person person = personWithASchedule();
    expectRefusal(person, {"edit", "--focus", "soon"},
                  "--focus: \"soon\" is no duration from 1 second to 366 days, such as 25m or 1h30m.",
                  ExitCode::usage);
    expectRefusal(person, {"edit", "--cycles", "0"},
                  "Durations and the cycle count must be greater than zero.");
    expectRefusal(person, {"edit", "--at", "2026-11-01 00:00"},
                  "--at: The time to begin, "
                  "2026-11-01 00:00, has passed; name a later time, or begin now.",
                  ExitCode::usage);
}

TEST(EditOfASchedule, endsAnEditingOnTheScreenToo)
{
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    EXPECT_EQ(person.types({"edit", "--why", "Another reason"}).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.state().currentBlock->whyValue, "Another reason");
    person.has(state);
    person.now = moment + 4000;
    EXPECT_EQ(person.types({"edit", "--why", "Another reason"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"edit", "--start"}).code, ExitCode::done);
}

TEST(EditOfASchedule, isRefusedInThePlanningOfABlockThatIsNotScheduled)
{
    for (const bool hasBlock : {false, true}) {
        const Person person;
        QuillmereState state = stateIn(WorkflowState::blockPlanning);
        if (hasBlock) {
            state.currentBlock = sampleBlock(1);
        }
        person.has(state);
        EXPECT_EQ(person.types({"edit", "--why", "Another reason"}).code, ExitCode::refused) << hasBlock;
    }
}

TEST(PlanAfterEditing, keepsTheTimeWhereNothingIsTyped)
{
    const TimeZone here("UTC");
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    person.isAsked = true;
    person.answers = "\n\n\n\n\n\n\n\n\n\n\n\n";
    EXPECT_EQ(person.types({"plan"}).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.state().currentBlock, state.currentBlock);
}

}  // namespace
}  // namespace quillmere::test
