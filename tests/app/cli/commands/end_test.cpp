// An end of a session that was forgotten, and time that was a pause.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

/// Twenty minutes into a session that began at 15:00.
Person personWhoFocuses()
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1200.75;
    return person;
}

TEST(EndAt, endsARunningSessionAtAnEarlierTime)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    const Ending ending = person.types({"end", "--at", "15:12"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The focus session ended on Sun 15 Nov 2026, 15:12.\n\n"));
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(state.currentSession()->endedAt, moment + 720);
    EXPECT_EQ(state.updatedAt, moment + 1200);
    EXPECT_TRUE(filesAgree(person));
}

TEST(EndAt, correctsTheEndOfASessionThatWaitsForItsReview)
{
    const TimeZone here("UTC");
    Person person = personWhoFocuses();
    person.now = moment + 4000;
    EXPECT_EQ(person.types({"end", "--at", "15:12:30"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 750);
}

TEST(EndAgo, endsASessionThatLongAgo)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    EXPECT_TRUE(person.types({"end", "--ago", "605s"})
                    .out.starts_with("The focus session ended on Sun 15 Nov 2026, 15:09:55.\n\n"));
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 595);
}

TEST(EndAt, namesThePossibleTimesForAnyOther)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    const std::string message =
        "The session cannot have ended then: not before its start plus its pauses, and not after now. Of "
        "finished pauses only the sum is known. Possible times: 15:00:00 to 15:20:00.";
    expectRefusal(person, {"end", "--at", "14:59"}, message);
    expectRefusal(person, {"end", "--at", "2026-11-15 15:21"}, message);
    expectRefusal(person, {"end", "--ago", "21m"}, message);
    EXPECT_EQ(person.types({"end", "--at", "15:00:00"}).code, ExitCode::done);
}

TEST(EndAt, refusesATextThatIsNoTime)
{
    const Person person = personWhoFocuses();
    expectRefusal(
        person, {"end", "--at", "noon"},
        "--at: \"noon\" is no local time, such as 14:20, 2:20pm, 14:20:30, yesterday 17:00, mon 14:00 or "
        "2026-11-15 14:20.",
        ExitCode::usage);
    expectRefusal(person, {"end", "--ago", "noon"},
                  "--ago: \"noon\" is no duration from 1 second to 366 days, such as 25m or 1h30m.",
                  ExitCode::usage);
    EXPECT_EQ(person.types({"end", "--ago", "10m", "--at", "15:12"}).code, ExitCode::usage);
}

TEST(EndAt, saysElsewhereWhatIsPossible)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    expectRefusal(person, {"end", "--ago", "1m"},
                  "No session is running, and none waits for its review: the break runs until 15:05. "
                  "Possible: break end, break extend, finish, change.");
}

TEST(Away, addsThatTimeToThePauses)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    const Ending ending = person.types({"away", "--from", "15:05", "--to", "15:12:30"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(
        ending.out.starts_with("A pause from Sun 15 Nov 2026, 15:05 to Sun 15 Nov 2026, 15:12:30.\n\n"));
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 450);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Away, lastsUntilNowByDefault)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    EXPECT_TRUE(person.types({"away", "--from", "3:05pm"})
                    .out.starts_with("A pause from Sun 15 Nov 2026, 15:05 to Sun 15 Nov 2026, 15:20.\n\n"));
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 900);
}

TEST(Away, namesThePossibleTimes)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    const std::string message =
        "That time has to lie between the start of the session and now. Possible times: 15:00:00 to "
        "15:20:00.";
    expectRefusal(person, {"away", "--from", "14:50"}, message);
    expectRefusal(person, {"away", "--from", "15:10", "--to", "15:05"}, message);
    expectRefusal(person, {"away", "--from", "15:10", "--to", "15:30"}, message);
}

TEST(Away, isNoLongerThanTheSessionHasRun)
{
    const TimeZone here("UTC");
    const Person person = personWhoFocuses();
    person.types({"away", "--from", "15:05"});
    expectRefusal(person, {"away", "--from", "15:10"},
                  "Together with the finished pauses, that is longer than the session has run. Possible: a "
                  "shorter time. Possible lengths: 1 s to 5 min.");
}

TEST(Away, refusesATextThatIsNoTime)
{
    const Person person = personWhoFocuses();
    expectRefusal(
        person, {"away", "--from", "15:05", "--to", "soon"},
        "--to: \"soon\" is no local time, such as 14:20, 2:20pm, 14:20:30, yesterday 17:00, mon 14:00 or "
        "2026-11-15 14:20.",
        ExitCode::usage);
    EXPECT_EQ(person.types({"away"}).code, ExitCode::usage);
}

TEST(Away, saysElsewhereWhatIsPossible)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    expectRefusal(person, {"away", "--from", "15:00"},
                  "No focus session is running: session 1 of 3 waits for its review. Possible: review, "
                  "review --finish, change, extend, end --at.");
}

}  // namespace
}  // namespace quillmere::test
