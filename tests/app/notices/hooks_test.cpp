// The person's programs that run at each event.
#include "notices/subprocesses.hpp"
#include "workspace/leader_lock.hpp"

#include <signal.h>
#include <unistd.h>

#include <sstream>

#include "clocked_watch.hpp"
#include "desktop.hpp"
#include "real_program.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

using base::Moment;
using notices::Subprocesses;
using std::chrono::seconds;

Descriptor makeOpenFifo(const std::filesystem::path& path)
{
    makeFifo(path);
    return openFifo(path);
}

class Hook : public testing::Test {
protected:
    Hook()
    {
        person.now = moment + 2'000;
        notifier.becomesUnreachable("");
    }

    Person person;
    FakeNotifier notifier;
    TemporaryDirectory directory;

    std::filesystem::path file(const std::string& name) const { return directory.path() / name; }
    std::string textIn(const std::string& name) const
    {
        return std::filesystem::exists(file(name)) ? textOf(file(name)) : "";
    }
    /// A redirection into a file of the test.
    std::string into(const std::string& name) const { return " >> '" + file(name).string() + "'"; }

    /// Runs the hooks of the standing events to their end; returns the messages.
    std::string runsHooks(const Words& commands)
    {
        ClockedWatch watch(person, notifier, {.hooks = commands});
        EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); })) << watch.said();
        return watch.said();
    }
};

TEST_F(Hook, hasTheEventAsArgumentAndVariable)
{
    person.has(stateIn(WorkflowState::focusing));
    EXPECT_EQ(runsHooks({"echo \"$1 $QUILLMERE_EVENT $#\"" + into("events")}), "");
    EXPECT_EQ(textIn("events"), "focus_ended focus_ended 1\n");
}

TEST_F(Hook, runsAtEveryKindOfEvent)
{
    const std::string hook = "echo \"$1\"" + into("events");
    for (const QuillmereState& state :
         {stateIn(WorkflowState::breaking), asking(stateIn(WorkflowState::idle), 1, "May I?")}) {
        person.has(state);
        runsHooks({hook});
    }
    person.now = moment + 3'600;
    person.has(stateWithScheduledBlock());
    runsHooks({hook});
    EXPECT_EQ(textIn("events"), "break_ended\nquestion_raised\nblock_started\n");
}

TEST_F(Hook, readsTheSummaryOfTheWidget)
{
    person.has(stateIn(WorkflowState::focusing));
    runsHooks({"cat" + into("summary")});
    EXPECT_EQ(textIn("summary"), textOf(person.directory() / WidgetSnapshotStore::fileName));
    EXPECT_EQ(jsonAt("/phase", textIn("summary")), "\"reviewing\"");
}

TEST_F(Hook, mayLeaveASummaryUnreadThatIsLongerThanAnyPipe)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, std::string(1'000'000, 'x')));
    runsHooks({"true", "cat" + into("summary")});
    EXPECT_GT(textIn("summary").size(), 1'000'000U);
}

TEST_F(Hook, runsOncePerEventAndCommand)
{
    person.has(stateIn(WorkflowState::focusing));
    const std::string one = "echo one" + into("runs");
    const std::string two = "echo two" + into("runs");
    runsHooks({one});
    runsHooks({one});
    EXPECT_EQ(textIn("runs"), "one\n");
    runsHooks({one, two});
    EXPECT_EQ(textIn("runs"), "one\ntwo\n");
}

TEST_F(Hook, waitsWhileAnotherWatchStartsHooks)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier, {.hooks = {"echo one" + into("runs")}});
    {
        workspace::LeaderLock other(deliveryLogOf(person).parent_path());
        ASSERT_TRUE(other.tryAcquire());
        watch.round();
        EXPECT_FALSE(watch.isIdle());
        EXPECT_EQ(namesIn(deliveryLogOf(person)), Words{});
    }
    EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); }));
    EXPECT_EQ(textIn("runs"), "one\n");
    EXPECT_EQ(watch.said(), "");
}

TEST_F(Hook, waitsWithAQuestionUntilThePersonMayBeInterrupted)
{
    person.now = moment + 100;
    person.has(asking(stateIn(WorkflowState::focusing), 1, "May I?"));
    const std::string hook = "echo \"$1\"" + into("events");
    runsHooks({hook});
    EXPECT_EQ(textIn("events"), "");
    ASSERT_EQ(person.types({"pause"}).code, ExitCode::done);
    runsHooks({hook});
    EXPECT_EQ(textIn("events"), "question_raised\n");
}

TEST_F(Hook, runsWithSevenOthersAtMost)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 0; number < 12; ++number) {
        state = asking(state, number, "May I?");
    }
    person.has(state);
    const Descriptor gate = makeOpenFifo(file("gate"));
    // Opened for both directions here as well, before the hook is counted: one line releases one hook.
    const std::string hook =
        "exec 3<> '" + file("gate").string() + "'; echo begun" + into("runs") + "; read line <&3";
    const auto begun = [&] { return countOf("begun", textIn("runs")); };
    ClockedWatch watch(person, notifier, {.hooks = {hook}});
    EXPECT_TRUE(watch.roundsUntil([&] { return begun() == 8; }));
    EXPECT_EQ(watch.said(), "Hooks wait until one of the eight that run has ended.\n");
    for (std::size_t ended = 1; ended <= 4; ++ended) {
        EXPECT_EQ(::write(gate.get(), "\n", 1), 1);
        EXPECT_TRUE(watch.roundsUntil([&] { return begun() == 8 + ended; })) << begun();
    }
    EXPECT_TRUE(watch.said().ends_with("No hook waits any more.\n")) << watch.said();
    EXPECT_EQ(::write(gate.get(), "\n\n\n\n\n\n\n\n", 8), 8);
    EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); }));
    EXPECT_EQ(begun(), 12U);
}

TEST_F(Hook, thatCannotBeStartedIsTriedAgainAfterAPause)
{
    std::ostringstream text;
    base::LineWriter messages(text, -1);
    Subprocesses subprocesses(messages);
    const base::Moment now{seconds(100)};
    {
        // The summary is a file in memory, which has a size limit too.
        const FileSizeLimit nothing(0);
        EXPECT_FALSE(subprocesses.runHook("true", "focus_ended", "{}", now));
        EXPECT_FALSE(subprocesses.runHook("true", "focus_ended", "{}", now));
    }
    EXPECT_EQ(text.str(), "Hooks cannot be started now: File too large.\n");
    EXPECT_FALSE(subprocesses.mayRunHook(now + seconds(3)));
    EXPECT_TRUE(subprocesses.mayRunHook(now + seconds(4)));
    EXPECT_TRUE(subprocesses.runHook("true", "focus_ended", "{}", now + seconds(4)));
    EXPECT_EQ(countOf("\n", text.str()), 1U);
    subprocesses.reportNoHookWaits();
    EXPECT_TRUE(text.str().ends_with("No hook waits any more.\n"));
    EXPECT_TRUE(eventually([&] {
        subprocesses.reap();
        return subprocesses.isIdle();
    }));
}

TEST_F(Hook, thatFailsIsNamed)
{
    person.has(stateIn(WorkflowState::focusing));
    const std::string said = runsHooks({"exit 3", "kill -9 $$", "true"});
    EXPECT_EQ(countOf("\n", said), 2U);
    EXPECT_EQ(countOf("The hook \"exit 3\" failed: it ended with 3.\n", said), 1U) << said;
    EXPECT_EQ(countOf("The hook \"kill -9 $$\" failed: it was ended by signal 9.\n", said), 1U) << said;
}

/// Hooks of a real `quillmere watch`.
class HookOfAProcess : public Desktop {};

TEST_F(HookOfAProcess, thatHangsStopsNothing)
{
    const Descriptor fifo = makeOpenFifo(file("fifo"));
    const std::string hang = "exec 3<> '" + file("fifo").string() + "'; echo hangs >> '" +
                             file("hanging").string() + "'; read line <&3";
    const std::string note = "echo \"$1\" >> '" + file("events").string() + "'";
    person.has(focusOver(90));
    Process watch = watching({"--hook", hang, "--hook", note});
    EXPECT_TRUE(eventually([&] { return textIn("events") == "focus_ended\n"; })) << said();
    person.has(breakOver(5));
    EXPECT_TRUE(eventually([&] { return textIn("events") == "focus_ended\nbreak_ended\n"; })) << said();
    EXPECT_EQ(endBy(watch, SIGTERM), 0);
    // Both have the FIFO open, so the lines reach them: no hook is left running.
    EXPECT_TRUE(eventually([&] { return textIn("hanging") == "hangs\nhangs\n"; }));
    EXPECT_EQ(::write(fifo.get(), "\n\n", 2), 2);
}

TEST_F(HookOfAProcess, runsAtTheNextWatchWhenOneIsKilledBeforeItsStart)
{
    if (!canTrace()) {
        GTEST_SKIP() << cannotTrace;
    }
    const Words hook = {"--hook", "echo \"$1\" >> '" + file("events").string() + "'"};
    person.has(focusOver(90));
    // The summary is put into a file in memory just before the start.
    ProcessOptions killed = traced(watchOptions({"--once", hook[0], hook[1]}),
                                   {"-o", "/dev/null", "-e", "inject=memfd_create:signal=KILL"});
    EXPECT_EQ(run(killed).signal, SIGKILL);
    EXPECT_EQ(textIn("events"), "");
    watchesOnce(hook);
    watchesOnce(hook);
    EXPECT_EQ(textIn("events"), "focus_ended\n");
}

TEST_F(HookOfAProcess, hasNoFileOpenButItsStandardChannelsAndItsSignalsByDefault)
{
    person.has(focusOver(90));
    // `ls` runs in a shell below the one whose files it lists, so that its redirection is not listed.
    watchesOnce({"--hook", "(ls /proc/$$/fd) >> '" + file("open").string() + "'; true", "--hook",
                 "kill -PIPE $$", "--hook", "kill -XFSZ $$"});
    EXPECT_EQ(textIn("open"), "0\n1\n2\n");
    EXPECT_EQ(countOf("The hook \"kill -PIPE $$\" failed: it was ended by signal 13.\n", said()), 1U)
        << said();
    EXPECT_EQ(countOf("The hook \"kill -XFSZ $$\" failed: it was ended by signal 25.\n", said()), 1U)
        << said();
}

}  // namespace
}  // namespace quillmere::test
