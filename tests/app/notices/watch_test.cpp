// A watch records the events of passing time and delivers them.
#include "notices/watch.hpp"

#include "workspace/directory_lock.hpp"

#include <signal.h>

#include <cerrno>
#include <chrono>
#include <optional>
#include <sstream>
#include <vector>

#include "clocked_watch.hpp"
#include "desktop.hpp"
#include "refused_inotify.hpp"

namespace quillmere::test {
namespace {

using std::chrono::milliseconds;

/// Without notices: the notifier never gets ready.
class WatchOnAClock : public testing::Test {
protected:
    WatchOnAClock() { notifier.becomesUnreachable(""); }

    Person person;
    FakeNotifier notifier;
    const TimeZone utc{"UTC"};

    void sleepUntilItsTime(const ClockedWatch& watch)
    {
        const std::chrono::duration<double> sleep = watch.waiting().until - watch.moment();
        person.now = person.now + sleep.count();
    }

    bool isAwakeAt(int second, ClockedWatch& watch)
    {
        while (person.now < moment + second) {
            watch.untilIdle();
            sleepUntilItsTime(watch);
        }
        return person.now == moment + second;
    }

    /// As another process that has given the notice.
    void recordDelivery(const std::string& key) const
    {
        std::ostringstream said;
        base::LineWriter messages(said, -1);
        EXPECT_TRUE(notices::DeliveryLog(deliveryLogOf(person), messages).record(key));
    }
};

/// Whether there is nothing to wait for.
bool isReady(notices::Waiting waiting) { return base::waitFor(waiting.sources, milliseconds(0)); }

TEST_F(WatchOnAClock, catchesUpAtOnceAfterTheMachineHasSlept)
{
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 10.25;
    ClockedWatch watch(person, notifier);
    watch.round();
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    // The lid is closed for eight hours.
    person.now = moment + 10 + 8 * 3'600.0;
    watch.round();
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(*state.currentSession()->endedAt, moment + 1'500);
    EXPECT_EQ(watch.printed(), "15:25  Focus is over: Outcome of session 1\n");
    EXPECT_TRUE(filesAgree(person));
}

TEST_F(WatchOnAClock, looksEverySecondAndSaysSoOnceWhereFilesCannotBeWatched)
{
    const RefusedInotify refused(EMFILE);
    person.has(stateIn(WorkflowState::idle));
    ClockedWatch watch(person, notifier);
    watch.round();
    person.now = person.now + 1;
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    watch.round();
    EXPECT_EQ(countOf("Which build?", watch.printed()), 1U) << watch.printed();
    EXPECT_EQ(countOf("once a second", watch.said()), 1U) << watch.said();
    EXPECT_LE(watch.waiting().until, watch.moment() + std::chrono::seconds(1));
}

TEST_F(WatchOnAClock, beginsABlockAndEndsABreakWhenTheirTimeHasCome)
{
    person.has(stateWithScheduledBlock());
    ClockedWatch watch(person, notifier);
    person.now = moment + 3'599.9;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    person.now = moment + 3'600.1;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    person.has(stateIn(WorkflowState::breaking));
    watch.round();
    EXPECT_EQ(*person.state().breakEndNotifiedAt, moment + 300);
    EXPECT_EQ(watch.printed(),
              "16:00  The scheduled block has begun: Chapter one\n"
              "15:05  The break is over: Outcome of session 2\n");
}

TEST_F(WatchOnAClock, writesNothingWhileNothingHappens)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    const auto before = pictureOf(person.directory());
    for (int second = 1; second < 100; ++second) {
        person.now = moment + second;
        watch.round();
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
    EXPECT_EQ(watch.printed() + watch.said(), "");
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
}

TEST_F(WatchOnAClock, sleepsUntilTheNextWholeMinuteWhileNothingIsDue)
{
    QuillmereState paused = stateIn(WorkflowState::focusing);
    paused.currentBlock->sessions.back().pausedAt = moment;
    for (const QuillmereState& state : {stateIn(WorkflowState::idle), stateWithScheduledBlock(), paused}) {
        person.has(state);
        person.now = moment + 10.25;
        ClockedWatch watch(person, notifier);
        watch.round();
        EXPECT_EQ(watch.waiting().until - watch.moment(), milliseconds(49'750));
        EXPECT_FALSE(isReady(watch.waiting()));
    }
}

TEST_F(WatchOnAClock, isAwakeWhenSomethingIsDue)
{
    struct Row {
        QuillmereState state;
        double seconds;
        std::vector<int> awake;
    };
    const Row rows[] = {
        {stateIn(WorkflowState::focusing), 1'429, {1'440, 1'500}},
        {stateIn(WorkflowState::breaking), 290, {300}},
        {stateWithScheduledBlock(), 3'590, {3'600}},
    };
    for (const Row& row : rows) {
        person.has(row.state);
        person.now = moment + row.seconds;
        ClockedWatch watch(person, notifier);
        for (const int second : row.awake) {
            EXPECT_TRUE(isAwakeAt(second, watch));
        }
    }
}

TEST_F(WatchOnAClock, isAwakeForEachReminder)
{
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'507;
    FakeNotifier reachable;
    ClockedWatch watch(person, reachable, {.reminderSeconds = {100}});
    EXPECT_TRUE(isAwakeAt(1'560, watch));
    EXPECT_TRUE(isAwakeAt(1'600, watch));
}

TEST_F(WatchOnAClock, isAwakeToTryANoticeAgain)
{
    person.has(focusOver(0));
    person.now = presentSecond();
    ClockedWatch watch(person, notifier);
    watch.untilIdle();
    const std::chrono::duration<double> sleep = watch.waiting().until - watch.moment();
    EXPECT_LE(sleep.count(), 2);
}

TEST_F(WatchOnAClock, recordsAnEventInItsSecondWhenItSleepsAsLongAsItAsksFor)
{
    // The block is scheduled an hour after `moment`.
    person.has(stateWithScheduledBlock());
    ClockedWatch watch(person, notifier);
    watch.round();
    int rounds = 0;
    while (watch.printed().empty() && rounds < 5'000) {
        sleepUntilItsTime(watch);
        watch.round();
        ++rounds;
    }
    EXPECT_EQ(person.state().currentBlock->scheduledStartTriggeredAt, moment + 3'600);
    EXPECT_EQ(rounds, 60);
}

TEST_F(WatchOnAClock, isWokenByAChangeOfTheFiles)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    watch.round();
    person.has(stateIn(WorkflowState::idle));
    EXPECT_TRUE(isReady(watch.waiting()));
    watch.round();
    EXPECT_FALSE(isReady(watch.waiting()));
}

TEST_F(WatchOnAClock, ignoresChangesForAQuarterOfASecondAfterEachRead)
{
    person.now = moment + 0.125;
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier);
    watch.round();
    person.has(stateIn(WorkflowState::idle));
    watch.round();
    person.has(stateIn(WorkflowState::complete));
    EXPECT_FALSE(isReady(watch.waiting()));
    EXPECT_EQ(watch.waiting().until - watch.moment(), milliseconds(250));
    person.now = person.now + 0.25;
    EXPECT_TRUE(isReady(watch.waiting()));
}

TEST_F(WatchOnAClock, printsAnObjectForEachEventToPrograms)
{
    person.has(asking(stateIn(WorkflowState::breaking), 1, "May \x1b[31m I?"));
    person.now = moment + 400;
    ClockedWatch watch(person, notifier, {.json = true});
    watch.round();
    watch.round();
    EXPECT_EQ(watch.printed(),
              "{\"event\":\"break_ended\",\"at\":\"2026-11-15T15:05:00Z\"}\n"
              "{\"event\":\"question_raised\",\"at\":\"2026-11-15T15:00:00Z\"}\n");
}

TEST_F(WatchOnAClock, printsSanitizedText)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May \x1b[31m\nI?"));
    ClockedWatch watch(person, notifier);
    watch.round();
    EXPECT_EQ(watch.printed(), "15:00  A question waits: May \xEF\xBF\xBD[31m I?\n");
}

TEST_F(WatchOnAClock, printsTimesWithTwelveHoursToAPersonWhoReadsThem)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    ClockedWatch watch(person, notifier, {.hours = base::Hours::twelve});
    watch.round();
    EXPECT_EQ(watch.printed(), "3:00 pm  A question waits: May I?\n");
}

TEST_F(WatchOnAClock, reportsOnceThatTheFilesCannotBeUsedAndContinuesWhenTheyCan)
{
    person.has(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    ClockedWatch watch(person, notifier);
    watch.round();
    watch.round();
    EXPECT_EQ(countOf("\n", watch.said()), 1U);
    EXPECT_TRUE(watch.said().starts_with("The state cannot be used: ")) << watch.said();
    EXPECT_EQ(textOf(person.store().stateURL()), "spoilt");
    writeText(person.store().stateURL(), text);
    person.now = person.now + 1;
    watch.round();
    EXPECT_TRUE(watch.said().ends_with("The files can be used again.\n")) << watch.said();
    writeText(person.store().stateURL(), "spoilt again");
    person.now = moment + 1'600;
    watch.round();
    EXPECT_EQ(countOf("The state cannot be used: ", watch.said()), 2U);
    writeText(person.store().stateURL(), text);
    person.now = person.now + 1;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST_F(WatchOnAClock, triesAFileErrorAgainAfterASecond)
{
    person.has(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    ClockedWatch watch(person, notifier);
    watch.round();
    writeText(person.store().stateURL(), text);
    person.now = person.now + 0.875;
    watch.round();
    EXPECT_EQ(countOf("can be used again", watch.said()), 0U);
    person.now = person.now + 0.125;
    watch.round();
    EXPECT_EQ(countOf("can be used again", watch.said()), 1U);
}

TEST_F(WatchOnAClock, reportsOnceThatNothingCanBeRecordedAndDeliversAllTheSame)
{
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600;
    ClockedWatch watch(person, notifier);
    const FileEvents events = fileEventsDuring(person.directory(), "", [&] {
        const FileSizeLimit full(0);
        watch.round();
        // The second try uses a temporary file of another name.
        person.now = person.now + 1;
        watch.round();
    });
    EXPECT_EQ(watch.printed(), "15:25  Focus is over: Outcome of session 1\n");
    EXPECT_EQ(countOf("could not be written: File too large", watch.said()), 1U) << watch.said();
    EXPECT_EQ(events.made, 2U);
    person.now = person.now + 1;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_TRUE(watch.said().ends_with("The files can be used again.\n")) << watch.said();
    EXPECT_EQ(countOf("\n", watch.printed()), 1U);
}

TEST_F(WatchOnAClock, deliversWhatItCannotRecordWhileAnotherProcessHoldsTheLock)
{
    notifier.becomesReady();
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600;
    std::optional<workspace::DirectoryLock> lock(std::in_place, person.directory());
    ClockedWatch watch(person, notifier, {.lockPatience = milliseconds(0)});
    watch.untilIdle();
    EXPECT_EQ(notifier.requests.size(), 1U);
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    lock.reset();
    person.now = person.now + 1;
    watch.untilIdle();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(notifier.requests.size(), 1U);
}

TEST_F(WatchOnAClock, printsAnEventOnceWhereThereIsNoStateHome)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    ClockedWatch watch(person, notifier, {}, person.directory(), "");
    watch.round();
    watch.round();
    EXPECT_EQ(countOf("\n", watch.printed()), 1U);
}

TEST_F(WatchOnAClock, printsTheEventsDeliveredSinceItsStartOnly)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    recordDelivery("question-" + identifier(601).text());
    ClockedWatch watch(person, notifier);
    watch.round();
    EXPECT_EQ(watch.printed(), "");
    recordDelivery("question-" + identifier(602).text());
    person.has(asking(person.state(), 2, "Which build?"));
    watch.round();
    watch.round();
    EXPECT_EQ(watch.printed(), "15:00  A question waits: Which build?\n");
}

TEST_F(WatchOnAClock, keepsOldRecordsOfStandingEvents)
{
    const std::string key = "question-" + identifier(601).text();
    recordDelivery(key);
    std::filesystem::last_write_time(
        deliveryLogOf(person) / key,
        std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 41));
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    ClockedWatch(person, notifier).round();
    EXPECT_EQ(namesIn(deliveryLogOf(person)), Words{key});
    person.has(stateIn(WorkflowState::idle));
    ClockedWatch(person, notifier).round();
    EXPECT_EQ(namesIn(deliveryLogOf(person)), Words{});
}

TEST(WatchCommand, failsWithOnceWhenTheFilesCannotBeUsed)
{
    Person person;
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"watch", "--once"}).code, ExitCode::unusableData);
}

TEST(WatchCommand, acceptsNoOtherUrgency)
{
    const Person person;
    EXPECT_EQ(person.types({"watch", "--once", "--urgency", "loud"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"watch", "--once", "--urgency", "3"}).code, ExitCode::usage);
}

class WatchProcess : public Desktop {};

TEST_F(WatchProcess, endsWithSuccessOnASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        person.has(focusOver(5));
        Process watch = watching();
        EXPECT_TRUE(eventually([&] { return person.state().workflowState == WorkflowState::sessionReview; }));
        EXPECT_EQ(endBy(watch, signal), 0);
    }
}

TEST_F(WatchProcess, reportsNothingWhenASignalEndsItsNotifierToo)
{
    hasBus();
    hasService();
    person.has(focusOver(5));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); }));
    const std::string notifier = childrenOf(watch.number());
    ASSERT_FALSE(notifier.empty());
    const std::string before = said();
    // Control-C reaches both; here the end of the notifier arrives first.
    ::kill(watch.number(), SIGSTOP);
    ::kill(std::stoi(notifier), SIGKILL);
    ::kill(watch.number(), SIGINT);
    ::kill(watch.number(), SIGCONT);
    EXPECT_EQ(watch.wait().code, 0);
    EXPECT_EQ(said(), before);
}

TEST_F(WatchProcess, continuesWhenNobodyReadsItsOutput)
{
    hasBus();
    hasService();
    for (const bool isGone : {false, true}) {
        // A hook that fails makes the watch write a message too.
        ProcessOptions options = watchOptions({"--hook", "exit 3"});
        options.output = isGone ? Channel::pipe() : Channel::fullPipe();
        options.error = Channel::sameAsOut();
        Process watch(options);
        if (isGone) {
            watch.closeOutput();
        }
        const std::size_t before = notices().size();
        person.has(asking(stateIn(WorkflowState::idle), isGone ? 1 : 2, "May I?"));
        EXPECT_TRUE(eventually([&] { return hasNotices(before + 1); }));
        EXPECT_EQ(endBy(watch, SIGTERM), 0);
    }
}

TEST_F(WatchProcess, continuesWithoutStandardChannels)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    ProcessOptions options = watchOptions({"--hook", "cat > " + shellWord(file("summary").string())});
    options.input = options.output = options.error = Channel::closed();
    Process watch(options);
    EXPECT_TRUE(eventually([&] { return hasNotices(1) && !textIn("summary").empty(); }));
    for (const char* channel : {"0", "1", "2"}) {
        const std::string files = "/proc/" + std::to_string(watch.number()) + "/fd/";
        EXPECT_EQ(std::filesystem::read_symlink(files + channel), "/dev/null") << channel;
    }
    EXPECT_EQ(endBy(watch, SIGTERM), 0);
}

}  // namespace
}  // namespace quillmere::test
