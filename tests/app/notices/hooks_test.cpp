// Programs of the person that run at each event.
#include "notices/subprocesses.hpp"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <sstream>

#include "desktop.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

class HookProgram : public Desktop {
protected:
    /// A redirection into a file of the test.
    std::string into(const std::string& name) const { return " >> '" + file(name).string() + "'"; }
};

TEST_F(HookProgram, isToldTheEventTwice)
{
    person.has(focusOver(90));
    watchesOnce({"--hook", "echo \"$1 $QUILLMERE_EVENT $#\"" + into("told")});
    EXPECT_EQ(textIn("told"), "focus_ended focus_ended 1\n");
}

TEST_F(HookProgram, runsAtEveryKindOfEvent)
{
    const std::string hook = "echo \"$1\"" + into("told");
    person.has(breakOver(5));
    watchesOnce({"--hook", hook});
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->plannedStart = presentSecond() - 10;
    person.has(state);
    watchesOnce({"--hook", hook});
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watchesOnce({"--hook", hook});
    EXPECT_EQ(textIn("told"), "break_ended\nblock_started\nquestion_raised\n");
}

TEST_F(HookProgram, readsTheSummaryAsTheWidgetHasIt)
{
    person.has(focusOver(90));
    watchesOnce({"--hook", "cat" + into("summary")});
    EXPECT_EQ(textIn("summary"), textOf(person.directory() / WidgetSnapshotStore::fileName));
    EXPECT_EQ(jsonAt("/phase", textIn("summary")), "\"reviewing\"");
}

TEST_F(HookProgram, needNotReadASummaryLongerThanAnyPipe)
{
    person.has(asking(stateIn(WorkflowState::idle), 1, std::string(1'000'000, 'x')));
    watchesOnce({"--hook", "true", "--hook", "cat" + into("summary")});
    EXPECT_GT(textIn("summary").size(), 1'000'000U);
}

TEST_F(HookProgram, runsOnceForAnEventAndACommand)
{
    person.has(focusOver(90));
    const std::string one = "echo one" + into("told");
    const std::string two = "echo two" + into("told");
    watchesOnce({"--hook", one});
    watchesOnce({"--hook", one});
    EXPECT_EQ(textIn("told"), "one\n");
    watchesOnce({"--hook", one, "--hook", two});
    EXPECT_EQ(textIn("told"), "one\ntwo\n");
}

TEST_F(HookProgram, waitsWithAQuestionUntilThePersonMayBeInterrupted)
{
    person.has(asking(focusOver(-600), 1, "May I?"));
    watchesOnce({"--hook", "echo \"$1\"" + into("told")});
    EXPECT_EQ(textIn("told"), "");
}

TEST_F(HookProgram, thatHangsStopsNothing)
{
    makeFifo(file("never"));
    person.has(focusOver(90));
    Process watch =
        watching({"--hook", "cat '" + file("never").string() + "'", "--hook", "echo \"$1\"" + into("told")});
    EXPECT_TRUE(eventually([&] { return textIn("told") == "focus_ended\n"; }));
    person.has(breakOver(5));
    EXPECT_TRUE(eventually([&] { return textIn("told") == "focus_ended\nbreak_ended\n"; }));
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
    // Lets the two hooks go that still wait.
    for (int count = 0; count < 2; ++count) {
        writeText(file("never"), "");
    }
}

TEST_F(HookProgram, runsWithSevenOthersAtMost)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 0; number < 12; ++number) {
        state = asking(state, number, "May I?");
    }
    makeFifo(file("gate"));
    person.has(state);
    const std::string hook = "echo begun" + into("told") + "; read line < '" + file("gate").string() + "'";
    Process watch = watching({"--hook", hook});
    EXPECT_TRUE(eventually([&] { return countOf("begun", textIn("told")) == 8; }));
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_TRUE(said().starts_with("Hooks wait until one of the eight that run has ended.\n")) << said();
    EXPECT_EQ(countOf("begun", textIn("told")), 8U);
    // One line lets one go.
    const base::Descriptor gate(::open(file("gate").c_str(), O_RDWR | O_CLOEXEC));
    for (std::size_t ended = 1; ended <= 4; ++ended) {
        EXPECT_EQ(::write(gate.get(), "\n", 1), 1);
        EXPECT_TRUE(eventually([&] { return countOf("begun", textIn("told")) == 8 + ended; }));
    }
    EXPECT_TRUE(eventually([&] { return said().ends_with("No hook waits any more.\n"); })) << said();
    // The rest of them go, too.
    EXPECT_EQ(::write(gate.get(), "\n\n\n\n\n\n\n\n", 8), 8);
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
}

TEST_F(HookProgram, thatCannotBeStartedIsTriedAgainLater)
{
    std::ostringstream text;
    base::LineWriter messages(text, -1);
    notices::Subprocesses errands(messages);
    {
        // The summary that a hook reads is a file in memory, which is limited too.
        const FileSizeLimit nothing(0);
        EXPECT_FALSE(errands.runHook("true", "focus_ended", "{}"));
        EXPECT_FALSE(errands.runHook("true", "focus_ended", "{}"));
    }
    EXPECT_FALSE(errands.mayRunHook());
    EXPECT_EQ(text.str(), "Hooks cannot be started now: File too large.\n");
    EXPECT_TRUE(eventually([&] { return errands.mayRunHook(); }));
    EXPECT_TRUE(errands.runHook("true", "focus_ended", "{}"));
    EXPECT_EQ(countOf("\n", text.str()), 1U);
    errands.noHookWaits();
    EXPECT_TRUE(text.str().ends_with("No hook waits any more.\n"));
    EXPECT_TRUE(eventually([&] {
        errands.takeLeave();
        return errands.isIdle();
    }));
}

TEST_F(HookProgram, thatFailsIsNamed)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    watchesOnce({"--hook", "exit 3", "--hook", "kill -9 $$", "--hook", "true"});
    EXPECT_EQ(countOf("\n", said()), 2U);
    EXPECT_EQ(countOf("The hook \"exit 3\" failed: it ended with 3.\n", said()), 1U) << said();
    EXPECT_EQ(countOf("The hook \"kill -9 $$\" failed: it was ended by signal 9.\n", said()), 1U) << said();
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(HookProgram, hasNoFileOpenButItsStandardChannels)
{
    person.has(focusOver(90));
    // The redirection is in a shell below the one that is looked at.
    watchesOnce({"--hook", "(ls /proc/$$/fd)" + into("open") + "; true"});
    EXPECT_EQ(textIn("open"), "0\n1\n2\n");
}

TEST_F(HookProgram, hasItsSignalsAsUsual)
{
    person.has(focusOver(90));
    watchesOnce({"--hook", "kill -PIPE $$"});
    EXPECT_EQ(countOf("The hook \"kill -PIPE $$\" failed: it was ended by signal 13.\n", said()), 1U)
        << said();
}

TEST(ChildProcess, hasNoSignalHeldBackThoughItsParentHoldsSome)
{
    const TemporaryDirectory directory;
    const base::Descriptor output(
        ::open((directory.path() / "out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    sigset_t held;
    ::sigemptyset(&held);
    ::sigaddset(&held, SIGTERM);
    sigset_t before;
    ::pthread_sigmask(SIG_BLOCK, &held, &before);
    Process child({.words = {"grep", "^SigBlk", "/proc/self/status"}, .output = output.get()});
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(textOf(directory.path() / "out"), "SigBlk:\t0000000000000000\n");
}

}  // namespace
}  // namespace quillmere::test
