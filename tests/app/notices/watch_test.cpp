// Time passes without a screen.
#include "notices/watch.hpp"

#include "workspace/state_home.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <optional>
#include <sstream>
#include <thread>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

using notices::Watch;
using notices::WatchSettings;

/// While it lives, nothing can be written into any file, as when the disk is full.
class NoRoom {
public:
    NoRoom()
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{.rlim_cur = 0, .rlim_max = before_.rlim_max};
        handler_ = ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;
    ~NoRoom()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

/// A watch in this process, on a clock that the test sets; without anything to give notices with.
class WatchOnAClock : public testing::Test {
protected:
    Person person;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    base::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [this] { return person.now; },
        .inputIsTerminal = false,
        .outputIsTerminal = false,
        .stateHome = person.stateHome(),
    };
    bool json = false;
    const TimeZone utc{"UTC"};

    std::filesystem::path records() const
    {
        return workspace::stateDirectory(person.directory(), person.stateHome()) / "notices";
    }
    /// As a program does that has given the notice.
    void makeRecord(const std::string& key)
    {
        base::LineWriter messages(err, -1);
        EXPECT_TRUE(notices::DeliveryLog(records(), messages).make(key));
    }

    Watch watch()
    {
        return {workspace::Workspace::in(person.directory(), environment.clock, environment.stateHome),
                environment,
                {.json = json, .notifier = "/nowhere/notifier"}};
    }
};

TEST_F(WatchOnAClock, catchesUpAtOnceAfterTheMachineHasSlept)
{
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 10.25;
    Watch watch = this->watch();
    watch.round();
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    // The lid is closed for eight hours.
    person.now = moment + 10 + 8 * 3'600.0;
    watch.round();
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(*state.currentSession()->endedAt, moment + 1'500);
    EXPECT_EQ(out.str(), "15:25  Focus is over: Outcome of session 1\n");
    EXPECT_TRUE(filesAgree(person));
}

TEST_F(WatchOnAClock, beginsABlockAndEndsABreakWhenTheirTimeHasCome)
{
    person.has(stateWithScheduledBlock());
    Watch watch = this->watch();
    person.now = moment + 3'599.9;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    person.now = moment + 3'600.1;
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    person.has(stateIn(WorkflowState::breaking));
    watch.round();
    EXPECT_EQ(*person.state().breakEndNotifiedAt, moment + 300);
    EXPECT_EQ(out.str(),
              "16:00  The scheduled block has begun: Chapter one\n"
              "15:05  The break is over: Outcome of session 2\n");
}

TEST_F(WatchOnAClock, writesNothingWhileNothingComesAbout)
{
    person.has(stateIn(WorkflowState::focusing));
    Watch watch = this->watch();
    const auto before = pictureOf(person.directory());
    for (int second = 1; second < 100; ++second) {
        person.now = moment + second;
        watch.round();
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
    EXPECT_EQ(out.str() + err.str(), "");
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
}

TEST_F(WatchOnAClock, printsAnObjectForEachEventToPrograms)
{
    json = true;
    person.has(asking(stateIn(WorkflowState::breaking), 1, "May \x1b[31m I?"));
    person.now = moment + 400;
    Watch watch = this->watch();
    watch.round();
    watch.round();
    EXPECT_EQ(out.str(),
              "{\"event\":\"break_ended\",\"at\":\"2026-11-15T15:05:00Z\"}\n"
              "{\"event\":\"question_raised\",\"at\":\"2026-11-15T15:00:00Z\"}\n");
}

TEST_F(WatchOnAClock, printsInertText)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May \x1b[31m\nI?"));
    Watch watch = this->watch();
    watch.round();
    EXPECT_EQ(out.str(), "15:00  A question waits: May \xEF\xBF\xBD[31m I?\n");
}

TEST_F(WatchOnAClock, saysOnceThatTheFilesCannotBeUsedAndGoesOnWhenTheyCan)
{
    const auto isSoon = [&](Watch& watch, const std::function<bool()>& condition) {
        return eventually([&] {
            watch.round();
            return condition();
        });
    };
    person.has(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    Watch watch = this->watch();
    watch.round();
    watch.round();
    EXPECT_EQ(countOf("\n", err.str()), 1U);
    EXPECT_TRUE(err.str().starts_with("The state cannot be used: ")) << err.str();
    EXPECT_EQ(textOf(person.store().stateURL()), "spoilt");
    writeText(person.store().stateURL(), text);
    EXPECT_TRUE(isSoon(watch, [&] { return err.str().ends_with("The files can be used again.\n"); }))
        << err.str();
    writeText(person.store().stateURL(), "spoilt again");
    person.now = moment + 1'600;
    watch.round();
    EXPECT_EQ(countOf("The state cannot be used: ", err.str()), 2U);
    writeText(person.store().stateURL(), text);
    EXPECT_TRUE(isSoon(watch, [&] { return person.state().workflowState == WorkflowState::sessionReview; }));
}

TEST_F(WatchOnAClock, saysOnceThatNothingCanBeRecordedAndTellsItAllTheSame)
{
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600;
    Watch watch = this->watch();
    const FileEvents events = fileEventsDuring(person.directory(), "", [&] {
        const NoRoom full;
        // Until it has tried a second time: the temporary file has another name then.
        const auto begin = std::chrono::steady_clock::now();
        while (std::chrono::steady_clock::now() < begin + std::chrono::milliseconds(1'500)) {
            watch.round();
        }
    });
    EXPECT_EQ(out.str(), "15:25  Focus is over: Outcome of session 1\n");
    EXPECT_EQ(countOf("write: File too large", err.str()), 1U) << err.str();
    EXPECT_EQ(events.made, 2U);
    EXPECT_TRUE(eventually([&] {
        watch.round();
        return person.state().workflowState == WorkflowState::sessionReview;
    }));
    EXPECT_TRUE(err.str().ends_with("The files can be used again.\n")) << err.str();
    EXPECT_EQ(countOf("\n", out.str()), 1U);
}

TEST_F(WatchOnAClock, printsAnEventOnceWhereThereIsNoStateHome)
{
    environment.stateHome.clear();
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    Watch watch = this->watch();
    watch.round();
    watch.round();
    EXPECT_EQ(countOf("\n", out.str()), 1U);
}

TEST_F(WatchOnAClock, printsWhatHasBeenToldWhileItRunsAndNotWhatWasToldBefore)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    makeRecord("question-" + identifier(601).text());
    Watch watch = this->watch();
    watch.round();
    EXPECT_EQ(out.str(), "");
    makeRecord("question-" + identifier(602).text());
    person.has(asking(person.state(), 2, "Which build?"));
    watch.round();
    watch.round();
    EXPECT_EQ(out.str(), "15:00  A question waits: Which build?\n");
}

TEST_F(WatchOnAClock, keepsOldRecordsOfWhatStillStands)
{
    const std::string key = "question-" + identifier(601).text();
    makeRecord(key);
    std::filesystem::last_write_time(
        records() / key, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 41));
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watch().round();
    EXPECT_EQ(namesIn(records()), Words{key});
    person.has(stateIn(WorkflowState::idle));
    watch().round();
    EXPECT_EQ(namesIn(records()), Words{});
}

TEST(WatchCommand, endsAsOtherCommandsDoWithOnceWhenTheFilesCannotBeUsed)
{
    Person person;
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"watch", "--once"}).code, ExitCode::unusableData);
}

TEST(WatchCommand, takesNoOtherUrgency)
{
    const Person person;
    EXPECT_EQ(person.types({"watch", "--once", "--urgency", "loud"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"watch", "--once", "--urgency", "3"}).code, ExitCode::usage);
}

class WatchProcess : public Desktop {};

TEST_F(WatchProcess, endsWellWhenItIsAskedTo)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        person.has(focusOver(5));
        Process watch = watching();
        EXPECT_TRUE(eventually([&] { return person.state().workflowState == WorkflowState::sessionReview; }));
        EXPECT_EQ(watch.endBy(signal), 0);
    }
}

TEST_F(WatchProcess, saysNothingWhenItsNotifierIsAskedToEndWithIt)
{
    hasBus();
    hasService();
    person.has(focusOver(5));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); }));
    const std::string notifier = childrenOf(watch.number());
    ASSERT_FALSE(notifier.empty());
    const std::string before = said();
    // Control-C reaches both; here the notifier is the first to be heard of.
    ::kill(watch.number(), SIGSTOP);
    ::kill(std::stoi(notifier), SIGKILL);
    ::kill(watch.number(), SIGINT);
    ::kill(watch.number(), SIGCONT);
    EXPECT_EQ(watch.wait(), 0);
    EXPECT_EQ(said(), before);
}

TEST_F(WatchProcess, tellsWhatItCannotRecordWhileSomebodyHoldsTheDirectory)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    std::optional<workspace::DirectoryLock> lock(std::in_place, person.directory());
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    lock.reset();
    EXPECT_TRUE(eventually([&] { return person.state().workflowState == WorkflowState::sessionReview; }));
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(WatchProcess, readsAFewTimesASecondHoweverOftenTheDirectoryChanges)
{
    person.has(stateIn(WorkflowState::idle));
    const Process watch = watching();
    const auto begin = std::chrono::steady_clock::now();
    const FileEvents events = fileEventsDuring(person.directory(), "state.json", [&] {
        for (int count = 0; count < 200; ++count) {
            writeText(person.directory() / "noise", "");
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(events.opened, 2U);
    // Four reads and the one of each whole second, with some to spare at either end.
    EXPECT_LE(static_cast<double>(events.opened), 5 * seconds.count() + 5);
}

TEST_F(WatchProcess, goesOnWhenNobodyReadsWhatItPrints)
{
    hasBus();
    hasService();
    for (const bool isGone : {false, true}) {
        Pipe pipe = makePipe();
        if (isGone) {
            pipe.from = base::Descriptor();
        } else {
            // Full to the last byte.
            ::fcntl(pipe.to.get(), F_SETFL, O_NONBLOCK);
            while (::write(pipe.to.get(), "full", 1) == 1) {
            }
            ::fcntl(pipe.to.get(), F_SETFL, 0);
        }
        // A hook that fails has the watch say something, too.
        Process watch({.words = {QUILLMERE_PROGRAM, "--directory", person.directory().string(), "watch",
                                 "--hook", "exit 3"},
                       .variables = variables(),
                       .output = pipe.to.get()});
        const std::size_t before = notices().size();
        person.has(asking(stateIn(WorkflowState::idle), isGone ? 1 : 2, "May I?"));
        EXPECT_TRUE(eventually([&] { return hasNotices(before + 1); }));
        EXPECT_EQ(watch.endBy(SIGTERM), 0);
    }
}

TEST_F(WatchProcess, goesOnWithoutAnyStandardChannel)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    Process watch(
        {.words = {"/bin/sh", "-c",
                   watchCommand({"--hook", "cat > '" + file("summary").string() + "'"}) + " <&- >&- 2>&-"},
         .variables = variables()});
    EXPECT_TRUE(eventually([&] { return hasNotices(1) && !textIn("summary").empty(); }));
    for (const char* channel : {"0", "1", "2"}) {
        const std::string files = "/proc/" + std::to_string(watch.number()) + "/fd/";
        EXPECT_EQ(std::filesystem::read_symlink(files + channel), "/dev/null") << channel;
    }
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
}

TEST_F(WatchProcess, sleepsBetweenSeconds)
{
    // Three seconds of waiting, of which next to nothing is work; a loop that never slept would work all of
    // it.
    person.has(focusOver(-3));
    rusage before{};
    ::getrusage(RUSAGE_CHILDREN, &before);
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return person.state().workflowState == WorkflowState::sessionReview; }));
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
    rusage after{};
    ::getrusage(RUSAGE_CHILDREN, &after);
    const auto milliseconds = [](const rusage& usage) {
        return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1'000 +
               (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1'000;
    };
    EXPECT_LT(milliseconds(after) - milliseconds(before), 1'000);
}

}  // namespace
}  // namespace quillmere::test
