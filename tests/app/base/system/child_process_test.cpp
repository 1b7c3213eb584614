// Child processes of the program.
#include "base/system/child_process.hpp"

#include <gtest/gtest.h>
#include <signal.h>

#include "support/eventually.hpp"
#include "support/pipe.hpp"

namespace quillmere::test {
namespace {

using base::ChildEnding;

/// Starts a program and waits for its end.
ChildEnding endingOf(const base::ChildProgram& program)
{
    const pid_t child = base::startChild(program);
    ChildEnding ending{};
    const testing::AssertionResult hasEnded =
        eventually([&] { return (ending = base::endingOf(child)).hasEnded; });
    EXPECT_TRUE(hasEnded) << program.words.front();
    if (!hasEnded) {
        base::killChild(child);
    }
    return ending;
}

TEST(ChildProcess, hasNoSignalBlockedThoughItsParentBlocksOne)
{
    const Pipe output;
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    sigset_t before;
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const ChildEnding ending =
        endingOf({.words = {"grep", "^SigBlk", "/proc/self/status"}, .output = output.writer()});
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_EQ(ending.failure, "");
    EXPECT_EQ(output.take(), "SigBlk:\t0000000000000000\n");
}

TEST(ChildProcess, isWaitedForUntilItHasEnded)
{
    EXPECT_EQ(base::awaitEnding(base::startChild({.words = {"sh", "-c", "sleep 0.01; exit 3"}})).failure,
              "it ended with 3");
    EXPECT_EQ(base::awaitEnding(base::startChild({.words = {"true"}})).failure, "");
}

}  // namespace
}  // namespace quillmere::test
