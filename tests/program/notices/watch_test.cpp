// Time passes without a screen.
#include "notices/watch.hpp"

#include <signal.h>
#include <sys/resource.h>

#include <sstream>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

using app::Watch;
using app::WatchSettings;

/// A watch in this process, on a clock that the test sets; without anything to give notices with.
class WatchOnAClock : public testing::Test {
protected:
    Person person;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    app::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [this] { return person.now; },
        .inputIsTerminal = false,
        .outputIsTerminal = false,
        .stateHome = person.stateHome(),
    };
    app::Program program{environment};
    const TimeZone utc{"UTC"};

    Watch watch()
    {
        program.settings().directory = person.directory();
        return Watch(program, {.notifier = "/nowhere/notifier"});
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
    program.settings().json = true;
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
    watch.round();
    EXPECT_TRUE(err.str().ends_with("The files can be used again.\n")) << err.str();
    writeText(person.store().stateURL(), "spoilt again");
    person.now = moment + 1'600;
    watch.round();
    EXPECT_EQ(countOf("The state cannot be used: ", err.str()), 2U);
    writeText(person.store().stateURL(), text);
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST_F(WatchOnAClock, keepsClaimsInMemoryWhereThereIsNoStateHome)
{
    environment.stateHome.clear();
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    Watch watch = this->watch();
    watch.round();
    watch.round();
    EXPECT_EQ(countOf("\n", out.str()), 1U);
}

TEST_F(WatchOnAClock, keepsOldClaimsOnWhatStillStands)
{
    const auto makeOld = [&] {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(person.stateHome())) {
            std::filesystem::last_write_time(
                entry.path(), std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 41));
        }
    };
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watch().round();
    makeOld();
    watch().round();
    EXPECT_EQ(countOf("\n", out.str()), 1U);
    // Answered, and raised again with the same identity: only now is the claim gone.
    person.has(stateIn(WorkflowState::idle));
    watch().round();
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watch().round();
    EXPECT_EQ(countOf("\n", out.str()), 2U);
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
