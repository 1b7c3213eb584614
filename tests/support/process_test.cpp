// The launcher of child processes.
#include "support/process.hpp"

#include <fcntl.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <iostream>
#include <system_error>

#include "support/file_system.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

TEST(AChildProcess, endsWithItsCodeAndItsOutput)
{
    const ProcessEnding ending = runShell("echo printed; echo reported >&2; exit 3");
    EXPECT_EQ(ending.code, 3);
    EXPECT_EQ(ending.signal, 0);
    EXPECT_EQ(ending.out, "printed\n");
    EXPECT_EQ(ending.err, "reported\n");
    EXPECT_GT(ending.mostMemory, 0u);
}

TEST(AChildProcess, endedByASignalHas128PlusTheSignal)
{
    const ProcessEnding ending = runShell("kill -TERM $$");
    EXPECT_EQ(ending.code, 128 + SIGTERM);
    EXPECT_EQ(ending.signal, SIGTERM);
}

TEST(AChildProcess, thatCannotBeStartedThrows)
{
    EXPECT_THROW(run({.words = {"no-such-program"}}), std::system_error);
    EXPECT_THROW(run({.words = {"true"}, .directory = "/no/such/directory"}), std::system_error);
    EXPECT_FALSE(succeeds({"no-such-program"}));
}

TEST(AChildProcess, hasTheVariablesThatItIsGiven)
{
    ::setenv("QUILLMERE_TEST_KEPT", "kept", 1);
    ::setenv("QUILLMERE_TEST_REMOVED", "there", 1);
    const std::string line = "echo \"$QUILLMERE_TEST_KEPT,$QUILLMERE_TEST_REMOVED,$QUILLMERE_TEST_GIVEN\"";
    ProcessOptions options{
        .environment = {{"QUILLMERE_TEST_REMOVED", std::nullopt}, {"QUILLMERE_TEST_GIVEN", "given"}}};
    EXPECT_EQ(runShell(line, options).out, "kept,,given\n");
    options.inheritsEnvironment = false;
    EXPECT_EQ(runShell(line, options).out, ",,given\n");
}

TEST(AChildProcess, worksInTheDirectoryThatItIsGiven)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(run({.words = {"pwd", "-P"}, .directory = directory.path()}).out,
              std::filesystem::canonical(directory.path()).string() + "\n");
}

TEST(AChildProcess, readsTheTextThatItIsGiven)
{
    EXPECT_EQ(run({.words = {"cat"}, .input = Channel::text("two\nlines\n")}).out, "two\nlines\n");
    EXPECT_EQ(run({.words = {"cat"}}).out, "");
}

TEST(AChildProcess, canHaveAChannelClosed)
{
    EXPECT_EQ(runShell("[ -e /dev/fd/0 ] || echo closed", {.input = Channel::closed()}).out, "closed\n");
}

TEST(AChildProcess, canWriteToAFile)
{
    const TemporaryDirectory directory;
    const auto file = directory.path() / "log";
    runShell("echo one", {.output = Channel::toFile(file)});
    runShell("echo two >&2", {.output = Channel::toFile(file), .error = Channel::sameAsOut()});
    EXPECT_EQ(textOf(file), "one\ntwo\n");
}

TEST(AChildProcess, communicatesOverPipesAndSockets)
{
    for (const Channel& channel : {Channel::pipe(), Channel::socket()}) {
        Process echo({.words = {"cat"}, .input = channel, .output = channel});
        EXPECT_TRUE(echo.write("one\n"));
        EXPECT_EQ(echo.line(), "one");
        EXPECT_FALSE(echo.hasOutput());
        EXPECT_TRUE(echo.write("two\nthree"));
        echo.closeInput();
        EXPECT_EQ(echo.line(), "two");
        EXPECT_EQ(echo.rest(), "three");
        EXPECT_EQ(echo.wait().code, 0);
        EXPECT_FALSE(echo.write("nobody reads"));
    }
}

TEST(AChildProcess, canFindItsOutputFull)
{
    Process writer({.words = {"sh", "-c", "echo done"}, .output = Channel::fullPipe()});
    std::string text = writer.rest();
    EXPECT_EQ(writer.wait().code, 0);
    EXPECT_TRUE(text.ends_with("\n\ndone\n"));
}

TEST(AChildProcess, canHaveATerminalOfItsOwn)
{
    Process shell({.words = {"sh", "-c", "read word; echo \"got $word\"; stty size; exit 4"},
                   .input = Channel::terminal(),
                   .output = Channel::terminal(),
                   .error = Channel::terminal(),
                   .terminal = {.rows = 30, .columns = 100},
                   .typed = "typed\n"});
    EXPECT_EQ(shell.rest(), "typed\r\ngot typed\r\n30 100\r\n");
    EXPECT_EQ(shell.wait().code, 4);
}

TEST(AChildProcess, canBeLimitedBeforeItStarts)
{
    const auto limit = [] {
        const rlimit files{.rlim_cur = 20, .rlim_max = 20};
        ::setrlimit(RLIMIT_NOFILE, &files);
    };
    EXPECT_EQ(runShell("ulimit -n", {.inChild = limit}).out, "20\n");
}

TEST(AChildProcess, canRunAFunction)
{
    const auto work = [] {
        std::cout << "from the child";
        return 5;
    };
    const ProcessEnding ending = run({.work = work});
    EXPECT_EQ(ending.code, 5);
    EXPECT_EQ(ending.out, "from the child");
    const ProcessEnding thrown = run({.work = []() -> int { throw std::runtime_error("why"); }});
    EXPECT_EQ(thrown.code, 1);
    EXPECT_EQ(thrown.err, "why\n");
}

TEST(AChildProcess, showsItsOutputWhileItRuns)
{
    Process shell({.words = {"sh", "-c", "echo begun; sleep 100"}});
    EXPECT_TRUE(eventuallyEquals([&] { return shell.out(); }, "begun\n"));
    EXPECT_FALSE(shell.hasEnded());
}

TEST(AChildProcess, canBeStoppedAndEnded)
{
    Process sleeper({.words = {"sleep", "100"}});
    sleeper.send(SIGSTOP);
    EXPECT_TRUE(sleeper.waitForStop());
    sleeper.send(SIGCONT);
    sleeper.send(SIGTERM);
    EXPECT_FALSE(sleeper.waitForStop());
    EXPECT_EQ(sleeper.wait().signal, SIGTERM);
}

TEST(AChildProcess, isKilledWithItsChildrenAtTheEndOfItsObject)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const Descriptor reader(ends[0]);
    Descriptor writer(ends[1]);
    {
        // The shell and its sleep command hold the pipe open.
        const Process shell({.words = {"sh", "-c", "sleep 100 & wait"}, .output = Channel::to(writer.get())});
        writer.close();
    }
    char byte = 0;
    pollfd poll{.fd = reader.get(), .events = POLLIN, .revents = 0};
    ASSERT_EQ(::poll(&poll, 1, 30'000), 1);
    EXPECT_EQ(::read(reader.get(), &byte, 1), 0) << "nobody holds the pipe open any more";
}

TEST(AChildProcess, thatDoesNotEndFailsTheTestAndIsKilled)
{
    EXPECT_NONFATAL_FAILURE(
        {
            Process sleeper({.words = {"sh", "-c", "echo waiting; exec sleep 100"}});
            ASSERT_TRUE(eventuallyEquals([&] { return sleeper.out(); }, "waiting\n"));
            EXPECT_EQ(sleeper.wait(10ms).signal, SIGKILL);
        },
        "sh still runs and has printed: waiting");
}

TEST(AWordOfTheShell, isUnchangedByTheShell)
{
    const std::string text = "it's \"$HOME\" \\ *";
    EXPECT_EQ(runShell("printf %s " + shellWord(text)).out, text);
}

TEST(AFifo, isOpenedWithoutWaiting)
{
    const TemporaryDirectory directory;
    makeFifo(directory.path() / "fifo");
    const Descriptor fifo = openFifo(directory.path() / "fifo");
    EXPECT_EQ(::write(fifo.get(), "x", 1), 1);
    EXPECT_THROW(openFifo(directory.path() / "missing"), std::system_error);
}

}  // namespace
}  // namespace quillmere::test
