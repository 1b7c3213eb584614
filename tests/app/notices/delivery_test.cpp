// Which notices are given, when, and by which watch.
#include "desktop.hpp"

#include "clocked_watch.hpp"

namespace quillmere::test {
namespace {

using notices::NoticeRequest;
using notices::NotifierMessageKind;

/// "Focus is over for 0": the heading, and the number of the notice that is replaced.
Words headings(const std::vector<NoticeRequest>& requests)
{
    Words list;
    for (const NoticeRequest& request : requests) {
        list.push_back(request.heading + " for " + std::to_string(request.replaces));
    }
    return list;
}

class Delivery : public testing::Test {
protected:
    Person person;
    FakeNotifier notifier;

    void SetUp() override { person.now = moment + 2'000; }

    /// As `quillmere watch --once`, which stops its notifier at the end.
    void watchesOnce(FakeNotifier& channel) const
    {
        ClockedWatch(person, channel, {.once = true}).untilIdle();
        channel.stops();
    }
    void watchesOnce() { watchesOnce(notifier); }

    std::size_t recordCount() const
    {
        return std::filesystem::exists(deliveryLogOf(person)) ? namesIn(deliveryLogOf(person)).size() : 0;
    }
};

TEST_F(Delivery, requestsTheNoticeOfAnEvent)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch(person, notifier).untilIdle();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0], (NoticeRequest{.replaces = 0,
                                                   .heading = "Focus is over",
                                                   .body = "Outcome of session 1",
                                                   .urgency = 1,
                                                   .actions = {"default", "Open"},
                                                   .sound = "complete"}));
    EXPECT_EQ(recordCount(), 1U);
}

TEST_F(Delivery, isSilentWithoutSound)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch(person, notifier, {.sound = false}).untilIdle();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0].sound, "");
}

TEST_F(Delivery, offersToExtendABreakThatIsOver)
{
    person.has(stateIn(WorkflowState::breaking));
    ClockedWatch(person, notifier).untilIdle();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0].actions, (Words{"default", "Open", "extend", "Extend by 5 min"}));
}

TEST_F(Delivery, offersNoActionsWithOnce)
{
    person.has(stateIn(WorkflowState::breaking));
    watchesOnce();
    ASSERT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(notifier.requests[0].actions, Words{});
}

TEST_F(Delivery, isOnePerEventHoweverManyWatchesFollow)
{
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    watchesOnce();
    watchesOnce();
    EXPECT_EQ(headings(notifier.requests), (Words{"Focus is over for 0", "A question waits for 0"}));
}

TEST_F(Delivery, isNotRepeatedWhenAWatchIsKilledWhileItGivesTheNotice)
{
    person.has(stateIn(WorkflowState::focusing));
    notifier.fallsSilent();
    {
        ClockedWatch killed(person, notifier);
        EXPECT_TRUE(killed.roundsUntil([&] { return notifier.requests.size() == 1; }));
    }
    FakeNotifier next;
    watchesOnce(next);
    EXPECT_EQ(headings(next.requests), Words{});
}

TEST_F(Delivery, includesWhatAnotherProgramRecorded)
{
    person.has(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.types({"tick"}).code, ExitCode::done);
    watchesOnce();
    EXPECT_EQ(headings(notifier.requests), Words{"Focus is over for 0"});
}

TEST_F(Delivery, leavesOutWhatThePersonHasDealtWith)
{
    person.has(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person
                  .types({"review", "--completion", "Yes", "--next-outcome", "More", "--next-energy", "4",
                          "--next-morale", "3"})
                  .code,
              ExitCode::done);
    watchesOnce();
    EXPECT_EQ(headings(notifier.requests), Words{});
}

TEST_F(Delivery, hasTheUrgencyThatWasChosen)
{
    std::uint8_t number = 0;
    for (const notices::Urgency urgency :
         {notices::Urgency::low, notices::Urgency::normal, notices::Urgency::critical}) {
        person.has(asking(stateIn(WorkflowState::idle), number, "May I?"));
        ClockedWatch(person, notifier, {.urgency = urgency}).untilIdle();
        notifier.stops();
        ASSERT_EQ(notifier.requests.size(), number + 1U);
        EXPECT_EQ(notifier.requests.back().urgency, number);
        ++number;
    }
}

TEST_F(Delivery, replacesTheLastNoticeOnTheSameSubject)
{
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    person.has(asking(stateIn(WorkflowState::breaking), 1, "May I?"));
    watch.untilIdle();
    person.has(asking(person.state(), 2, "Which build?"));
    watch.untilIdle();
    EXPECT_EQ(headings(notifier.requests), (Words{"Focus is over for 0", "A question waits for 0",
                                                  "The break is over for 1", "2 questions wait for 2"}));
    // The new question stands first.
    EXPECT_EQ(notifier.requests.back().body, "Which build?\nMay I?");
}

TEST_F(Delivery, replacesTheNoticeOfAnEarlierWatch)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watchesOnce();
    person.has(asking(person.state(), 2, "Which build?"));
    watchesOnce();
    ASSERT_EQ(notifier.requests.size(), 2U);
    EXPECT_EQ(notifier.requests[1].replaces, 1U);
}

TEST_F(Delivery, replacesNoNoticeOfAnotherService)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    notifier.ends();
    notifier.becomesReady("bus:1.2");
    person.has(asking(person.state(), 2, "Which build?"));
    watch.untilIdle();
    person.now = person.now + 2;
    watch.untilIdle();
    ASSERT_EQ(notifier.requests.size(), 2U);
    EXPECT_EQ(notifier.requests[1].replaces, 0U);
}

TEST_F(Delivery, replacesNoNoticeThatThePersonClosed)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    notifier.sends({.kind = NotifierMessageKind::closed, .number = 1});
    watch.untilIdle();
    person.has(stateIn(WorkflowState::breaking));
    watch.untilIdle();
    EXPECT_EQ(headings(notifier.requests), (Words{"Focus is over for 0", "The break is over for 0"}));
}

TEST_F(Delivery, comesFromAWatchThatCanGiveItWhicheverSawTheEventFirst)
{
    FakeNotifier unreachable;
    unreachable.becomesUnreachable("no bus");
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch first(person, unreachable);
    first.untilIdle();
    ClockedWatch(person, notifier).untilIdle();
    EXPECT_EQ(headings(notifier.requests), Words{"Focus is over for 0"});
}

TEST_F(Delivery, comesFromTheSecondWatchWhenTheFirstLosesItsBus)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    FakeNotifier other;
    ClockedWatch first(person, notifier);
    ClockedWatch second(person, other);
    first.untilIdle();
    second.untilIdle();
    notifier.ends("no bus");
    notifier.becomesUnreachable("no bus");
    first.untilIdle();
    person.has(asking(person.state(), 2, "Which build?"));
    first.untilIdle();
    second.untilIdle();
    EXPECT_EQ(headings(notifier.requests), Words{"A question waits for 0"});
    EXPECT_EQ(headings(other.requests), Words{"2 questions wait for 1"});
}

TEST_F(Delivery, isOneForADirectoryHoweverItsPathIsSpelled)
{
    const TemporaryDirectory links;
    std::filesystem::create_directory_symlink(person.directory(), links.path() / "link");
    person.has(stateIn(WorkflowState::focusing));
    watchesOnce();
    ClockedWatch(person, notifier, {}, links.path() / "link", person.stateHome()).untilIdle();
    EXPECT_EQ(notifier.requests.size(), 1U);
}

TEST_F(Delivery, ofOneSubjectGoesOnWhileAnotherIsRefused)
{
    notifier.answersWith(
        {.kind = NotifierMessageKind::failed, .text = "no, for the 1st time", .error = "Refused"});
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    EXPECT_EQ(recordCount(), 0U);
    notifier.answersWith({.kind = NotifierMessageKind::given, .number = 7});
    person.has(asking(person.state(), 1, "May I?"));
    watch.untilIdle();
    EXPECT_EQ(headings(notifier.requests), (Words{"Focus is over for 0", "A question waits for 0"}));
    EXPECT_EQ(recordCount(), 1U);
}

TEST_F(Delivery, isTriedAgainWithGrowingPauses)
{
    notifier.answersWith({.kind = NotifierMessageKind::failed, .text = "no", .error = "Refused"});
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    const Instant begin = person.now;
    std::vector<double> tries;
    for (int second = 0; second < 200; ++second) {
        person.now = begin + second;
        watch.untilIdle();
        if (notifier.requests.size() > tries.size()) {
            tries.push_back(second);
        }
    }
    EXPECT_EQ(tries, (std::vector<double>{0, 2, 6, 14, 30, 62, 122, 182}));
}

TEST_F(Delivery, reportsAnErrorOnceAndItsEndOnce)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    for (const char* text : {"no, for the 1st time", "no, for the 2nd time"}) {
        notifier.answersWith({.kind = NotifierMessageKind::failed, .text = text, .error = "Refused"});
        watch.untilIdle();
        person.now = person.now + 100;
    }
    EXPECT_EQ(notifier.requests.size(), 2U);
    EXPECT_EQ(watch.said(), "Notices cannot be given now: no, for the 1st time.\n");
    notifier.answersWith({.kind = NotifierMessageKind::given, .number = 1});
    watch.untilIdle();
    EXPECT_EQ(watch.said(),
              "Notices cannot be given now: no, for the 1st time.\nNotices can be given again.\n");
}

TEST_F(Delivery, happensOnceForANoticeThatMayBeOnTheScreen)
{
    notifier.answersWith(
        {.kind = NotifierMessageKind::unanswered, .text = "the notification service does not answer"});
    person.has(stateIn(WorkflowState::focusing));
    watchesOnce();
    EXPECT_EQ(recordCount(), 1U);
    watchesOnce();
    EXPECT_EQ(notifier.requests.size(), 1U);
}

TEST_F(Delivery, isLeftToTheNextWatchWhenTheNotifierEndsFirst)
{
    notifier.answersWith(
        {.kind = NotifierMessageKind::ended, .text = "the notification service does not answer"});
    person.has(stateIn(WorkflowState::focusing));
    watchesOnce();
    EXPECT_EQ(recordCount(), 0U);
    FakeNotifier next;
    watchesOnce(next);
    EXPECT_EQ(headings(next.requests), Words{"Focus is over for 0"});
}

TEST_F(Delivery, isOfWhatStillStandsWhenTheBusComesUp)
{
    notifier.becomesUnreachable("no bus");
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    ASSERT_EQ(person
                  .types({"review", "--completion", "Yes", "--next-outcome", "More", "--next-energy", "4",
                          "--next-morale", "3"})
                  .code,
              ExitCode::done);
    notifier.becomesReady();
    person.now = person.now + 2;
    watch.untilIdle();
    EXPECT_EQ(headings(notifier.requests), Words{"A question waits for 0"});
}

TEST_F(Delivery, waitsWithAQuestionUntilThePersonMayBeInterrupted)
{
    person.now = moment + 100;
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    EXPECT_EQ(notifier.startCount, 0U);
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    watch.untilIdle();
    EXPECT_EQ(headings(notifier.requests), Words{"A question waits for 0"});
}

TEST_F(Delivery, ofSeveralQuestionsIsOneNoticeAndOneRecordEach)
{
    person.has(asking(asking(stateIn(WorkflowState::idle), 1, "Which build?"), 2, "May I?"));
    watchesOnce();
    EXPECT_EQ(headings(notifier.requests), Words{"2 questions wait for 0"});
    EXPECT_EQ(recordCount(), 2U);
}

TEST_F(Delivery, asksForNoNoticeWhileOneIsUnderWay)
{
    notifier.fallsSilent();
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    ClockedWatch watch(person, notifier);
    for (int count = 0; count < 5; ++count) {
        watch.round();
    }
    EXPECT_EQ(headings(notifier.requests), Words{"Focus is over for 0"});
    EXPECT_FALSE(watch.isIdle());
}

}  // namespace
}  // namespace quillmere::test
