// The notices a minute before an event and while it waits.
#include "desktop.hpp"

#include "clocked_watch.hpp"

namespace quillmere::test {
namespace {

using notices::NoticeRequest;

/// A focus session of 25 minutes that begins at `moment`.
class SaidAgain : public testing::Test {
protected:
    SaidAgain()
    {
        person.now = moment;
        person.has(stateIn(WorkflowState::focusing));
    }

    const TimeZone utc{"UTC"};
    Person person;
    FakeNotifier notifier;
    const notices::WatchSettings reminding{.reminderSeconds = {300, 600}};

    /// The headings of the notices that come until `last` seconds after `moment`, with the seconds at which
    /// they come, when all these watches look every minute.
    Words noticesUntil(int last, const std::vector<ClockedWatch*>& watches,
                       const std::vector<FakeNotifier*>& notifiers)
    {
        Words list;
        for (; person.now <= moment + last; person.now = person.now + 60) {
            for (ClockedWatch* const watch : watches) {
                watch->untilIdle();
            }
            for (FakeNotifier* const each : notifiers) {
                for (const NoticeRequest& request : std::exchange(each->requests, {})) {
                    list.push_back(std::to_string(static_cast<int>(person.now - moment)) + " " +
                                   request.heading);
                }
            }
        }
        return list;
    }
    Words noticesUntil(int last)
    {
        ClockedWatch watch(person, notifier, reminding);
        return noticesUntil(last, {&watch}, {&notifier});
    }
};

TEST_F(SaidAgain, isAMinuteBeforeAndAfterEachReminderAndThenNoMore)
{
    EXPECT_EQ(noticesUntil(3'000),
              (Words{"1440 Focus ends in a minute", "1500 Focus is over", "1800 Review waiting since 15:25",
                     "2100 Review waiting since 15:25"}));
}

TEST_F(SaidAgain, isOnceHoweverManyWatchesRun)
{
    FakeNotifier other;
    ClockedWatch first(person, notifier, reminding);
    ClockedWatch second(person, other, reminding);
    EXPECT_EQ(noticesUntil(1'800, {&first, &second}, {&notifier, &other}).size(), 3U);
    notifier.ends("no bus");
    notifier.becomesUnreachable("no bus");
    EXPECT_EQ(noticesUntil(3'000, {&first, &second}, {&notifier, &other}),
              Words{"2100 Review waiting since 15:25"});
}

TEST_F(SaidAgain, isOneNoticeOfTheEventWhenNobodyWasThere)
{
    person.now = moment + 2'000;
    EXPECT_EQ(noticesUntil(2'000), Words{"2000 Focus is over"});
    person.now = moment + 2'100;
    EXPECT_EQ(noticesUntil(2'400), Words{"2100 Review waiting since 15:25"});
}

TEST_F(SaidAgain, isNeitherPrintedNorGivenToHooks)
{
    ClockedWatch watch(person, notifier, reminding);
    EXPECT_EQ(noticesUntil(2'500, {&watch}, {&notifier}).size(), 4U);
    EXPECT_EQ(countOf("\n", watch.printed()), 1U) << watch.printed();
}

TEST_F(SaidAgain, isOfABreakAndOfAPlanToo)
{
    person.has(stateIn(WorkflowState::breaking));
    EXPECT_EQ(noticesUntil(660), (Words{"300 The break is over", "600 Break over since 15:05"}));
    person.now = moment + 3'600;
    person.has(stateWithScheduledBlock());
    EXPECT_EQ(noticesUntil(3'960),
              (Words{"3600 The scheduled block has begun", "3900 Plan waiting since 16:00"}));
}

TEST_F(SaidAgain, isNeverAQuestion)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    EXPECT_EQ(noticesUntil(1'200), Words{"0 A question waits"});
}

TEST_F(SaidAgain, hasTheSoundOfItsEvent)
{
    person.now = moment + 1'500;
    ClockedWatch watch(person, notifier, reminding);
    watch.untilIdle();
    person.now = moment + 1'800;
    watch.untilIdle();
    ASSERT_EQ(notifier.requests.size(), 2U);
    EXPECT_EQ(notifier.requests[1].sound, "complete");
}

TEST_F(SaidAgain, isQuietBeforeTheEndAndOffersTime)
{
    person.now = moment + 1'440;
    ClockedWatch(person, notifier, {.urgency = notices::Urgency::critical}).untilIdle();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0],
              (NoticeRequest{.replaces = 0,
                             .heading = "Focus ends in a minute",
                             .body = "Outcome of session 1",
                             .urgency = 0,
                             .actions = {"default", "Open", "extend-focus", "10 more minutes"}}));
}

TEST_F(SaidAgain, isBeforeTheEndNoMoreAfterAPauseButAfterAnExtension)
{
    person.now = moment + 1'440;
    EXPECT_EQ(noticesUntil(1'440), Words{"1440 Focus ends in a minute"});
    person.now = moment + 1'450;
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    person.now = person.now + 100;
    ASSERT_EQ(person.types({"resume"}).code, ExitCode::done);
    EXPECT_EQ(noticesUntil(1'550), Words());
    person.now = moment + 1'560;
    ASSERT_EQ(person.types({"extend", "10m"}).code, ExitCode::done);
    person.now = moment + 2'080;
    EXPECT_EQ(noticesUntil(2'140), Words{"2140 Focus ends in a minute"});
}

TEST_F(SaidAgain, isNotBeforeTheEndWhileTheSessionIsPaused)
{
    person.now = moment + 1'450;
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    EXPECT_EQ(noticesUntil(1'450), Words());
}

TEST_F(SaidAgain, isNotBeforeTheEndOfASessionOfAMinute)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().plannedDurationSeconds = 60;
    person.has(state);
    EXPECT_EQ(noticesUntil(0), Words());
}

TEST_F(SaidAgain, givesTenMinutesMoreByItsButton)
{
    person.now = moment + 1'440;
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    notifier.choosesAction(1, "extend-focus");
    watch.untilIdle();
    EXPECT_EQ(person.state().currentBlock->sessions.back().plannedDurationSeconds, 2'100);
    EXPECT_EQ(watch.said(), "");
}

TEST_F(SaidAgain, saysWhyItsButtonGivesNoMoreTime)
{
    person.now = moment + 1'440;
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    person.has(stateIn(WorkflowState::idle));
    notifier.choosesAction(1, "extend-focus");
    watch.untilIdle();
    EXPECT_EQ(watch.said(), "The session is not longer: No focus session is running.\n");
}

}  // namespace
}  // namespace quillmere::test
