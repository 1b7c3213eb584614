// A computer that slept in a focus session.
#include "clocked_watch.hpp"

namespace quillmere::test {
namespace {

/// A focus session of 25 minutes that begins at `moment`.
class SleepInFocus : public testing::Test {
protected:
    SleepInFocus()
    {
        person.now = moment + 60;
        person.has(stateIn(WorkflowState::focusing));
    }

    const TimeZone utc{"UTC"};
    Person person;
    FakeNotifier notifier;

    void sleeps(double duration)
    {
        person.now = person.now + duration;
        person.suspendedSeconds += duration;
    }
};

TEST_F(SleepInFocus, isToldOnceByAllWatchesAndCanBeMadeAPause)
{
    FakeNotifier other;
    ClockedWatch watch(person, notifier);
    ClockedWatch second(person, other);
    watch.untilIdle();
    second.untilIdle();
    sleeps(600);
    watch.untilIdle();
    second.untilIdle();
    ASSERT_EQ(notifier.requests.size() + other.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0].heading, "The computer slept from 15:01 to 15:11.");
    EXPECT_EQ(notifier.requests[0].body,
              "quillmere away --from 15:01 --to 15:11 makes it a pause; quillmere end --at 15:01 ends the "
              "session then.");
    EXPECT_EQ(notifier.requests[0].actions,
              (Words{"default", "Open", "sleep-was-pause", "Count it as a pause"}));
    notifier.choosesAction(1, "sleep-was-pause");
    watch.untilIdle();
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 600) << watch.said();
    person.now = person.now + 600;
    watch.untilIdle();
    EXPECT_EQ(notifier.requests.size(), 1U);
}

TEST_F(SleepInFocus, isToldWithTheEndThatCameMeanwhileAndCanBeTheEnd)
{
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    sleeps(3'600);
    watch.untilIdle();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0].heading, "Focus is over");
    EXPECT_EQ(notifier.requests[0].body,
              "Outcome of session 1\nThe computer slept from 15:01 to 15:25. quillmere end --at 15:01 ends "
              "the session then.");
    notifier.choosesAction(1, "end-before-sleep");
    watch.untilIdle();
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 60) << watch.said();
}

TEST_F(SleepInFocus, isNotToldOfAClockThatWasSet)
{
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    person.now = person.now + 600;
    watch.untilIdle();
    EXPECT_EQ(notifier.requests.size(), 0U);
}

}  // namespace
}  // namespace quillmere::test
