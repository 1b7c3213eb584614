// A break: lengthened, ended, skipped.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

Person personInABreak()
{
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    return person;
}

TEST(BreakExtend, addsUpExtensions)
{
    const Person person = personInABreak();
    EXPECT_EQ(person.types({"break", "extend", "90s"}).code, ExitCode::done);
    EXPECT_EQ(person.types({"break", "extend", "5"}).code, ExitCode::done);
    EXPECT_EQ(person.state().breakExtensionSeconds, 390);
    EXPECT_EQ(jsonAt("/time_text", person.types({"status", "--json"}).out), R"("11:30")");
    EXPECT_TRUE(filesAgree(person));
}

TEST(BreakExtend, refusesAnyOtherText)
{
    const Person person = personInABreak();
    const auto before = pictureOf(person.directory());
    for (const char* duration : {"0", "367d", "1e300", "", "soon", "-5"}) {
        SCOPED_TRACE(duration);
        const Ending ending = person.types({"break", "extend", duration});
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "Give a duration from 1 second to 366 days, such as 25m or 1h30m.\n");
    }
    EXPECT_EQ(person.types({"break", "extend"}).code, ExitCode::usage);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(BreakExtend, refusesASumOutsideTheLimits)
{
    const Person person = personInABreak();
    QuillmereState state = person.state();
    state.breakExtensionSeconds = 1000 * 366 * 86'400.0;
    person.has(state);
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"break", "extend", "1s"});
    EXPECT_EQ(ending.code, ExitCode::unusableData);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(BreakEnd, keepsThePlanOfTheNextSession)
{
    const Person person = personInABreak();
    EXPECT_EQ(person.types({"break", "end"}).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(person.state().plannedNextSession, samplePlan(2));
    EXPECT_TRUE(filesAgree(person));
}

TEST(BreakSkip, endsTheBreakToo)
{
    const Person person = personInABreak();
    const Ending ending = person.types({"break", "skip", "--json"});
    EXPECT_EQ(jsonAt("/done", ending.out), R"("The break is skipped.")");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(person.state().plannedNextSession, samplePlan(2));
}

TEST(Break, needsASubcommand)
{
    const Person person = personInABreak();
    EXPECT_EQ(person.types({"break"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"break", "dance"}).code, ExitCode::usage);
}

}  // namespace
}  // namespace quillmere::test
