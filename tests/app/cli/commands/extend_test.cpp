// A session gets longer or shorter, or goes on after its end.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

Person personIn(WorkflowState workflowState, double secondsLater)
{
    Person person;
    person.has(stateIn(workflowState));
    person.now = moment + secondsLater;
    return person;
}

double lengthOf(const Person& person) { return person.state().currentSession()->plannedDurationSeconds; }

TEST(Extend, makesARunningSessionLonger)
{
    const Person person = personIn(WorkflowState::focusing, 600);
    const Ending ending = person.types({"extend", "10m"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The session is longer now.\n\n")) << ending.out;
    EXPECT_EQ(lengthOf(person), 2100);
    EXPECT_EQ(person.state().updatedAt, moment + 600);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Extend, makesARunningSessionShorter)
{
    const Person person = personIn(WorkflowState::focusing, 600);
    const Ending ending = person.types({"extend", "--by=-5m"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The session is shorter now.\n\n")) << ending.out;
    EXPECT_EQ(lengthOf(person), 1200);
}

TEST(Extend, leavesASecondAboveWhatIsUsed)
{
    const Person person = personIn(WorkflowState::focusing, 600);
    expectRefusal(
        person, {"extend", "--by=-15m"},
        "The session cannot have this length: it can be planned for longer than what is used, and for "
        "366 days at most. Possible lengths: 10 min 1 s to 366 d.");
    expectRefusal(
        person, {"extend", "366d"},
        "The session cannot have this length: it can be planned for longer than what is used, and for "
        "366 days at most. Possible lengths: 10 min 1 s to 366 d.");
    EXPECT_EQ(person.types({"extend", "--by=-899s"}).code, ExitCode::done);
}

TEST(Extend, goesOnAfterTheEndAndCountsTheTimeSinceAsFocus)
{
    // The bell rang two minutes ago; the program notices it only now.
    const Person person = personIn(WorkflowState::focusing, 1620);
    const Ending ending = person.types({"extend", "10m"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The session goes on.\n\n")) << ending.out;
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::focusing);
    EXPECT_EQ(state.currentSession()->endedAt, std::nullopt);
    EXPECT_EQ(state.currentSession()->accumulatedPausedSeconds, 0);
    EXPECT_EQ(lengthOf(person), 2100);
    EXPECT_NE(ending.out.find("\n08:00 "), std::string::npos) << ending.out;
}

TEST(Extend, countsTheTimeSinceTheEndAsAPauseIfAsked)
{
    const Person person = personIn(WorkflowState::focusing, 1620);
    const Ending ending = person.types({"extend", "10m", "--as-pause"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 120);
    EXPECT_NE(ending.out.find("\n10:00 "), std::string::npos) << ending.out;
}

TEST(Extend, needsATimeToRunAfterTheEnd)
{
    const Person person = personIn(WorkflowState::focusing, 1620);
    EXPECT_EQ(person.types({"tick"}).code, ExitCode::done);
    expectRefusal(
        person, {"extend", "1m"},
        "The session cannot go on for that long: the time since its end counts as focus, and 366 days "
        "are the most. Possible: another length, or that time as a pause. Possible lengths: 2 min 1 s "
        "to 365 d 23 h 35 min.");
}

TEST(Extend, hasNoTimeSinceTheEndOfARunningSession)
{
    expectRefusal(personIn(WorkflowState::focusing, 600), {"extend", "10m", "--as-pause"},
                  "The session has not ended, so that no time since its end can be a pause. Possible: extend "
                  "without --as-pause; away, for a pause that was forgotten.");
}

TEST(Extend, saysElsewhereWhatIsPossible)
{
    expectRefusal(personIn(WorkflowState::breaking, 60), {"extend", "10m"},
                  "No focus session is running: the break runs until 15:05. Possible: break end, break "
                  "extend, finish, change.");
}

TEST(Extend, refusesATextThatIsNoLength)
{
    const Person person = personIn(WorkflowState::focusing, 600);
    const std::string message =
        "--by: Give a duration from 1 second to 366 days, such as 25m or 1h30m, or a negative one, which "
        "makes "
        "it shorter: -5m.";
    for (const Words& words :
         {Words{"extend"}, Words{"extend", "soon"}, Words{"extend", "0m"}, Words{"extend", "--by=--5m"},
          Words{"extend", "--by="}, Words{"extend", "367d"}}) {
        expectRefusal(person, words, message, ExitCode::usage);
    }
    EXPECT_EQ(person.types({"extend", "10m", "--by", "5m"}).code, ExitCode::usage);
}

}  // namespace
}  // namespace quillmere::test
