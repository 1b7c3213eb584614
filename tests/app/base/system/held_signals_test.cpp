// Signals that a program waits for with poll(2).
#include "base/system/held_signals.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "pipe.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using base::BrokenPipesAreErrors;
using base::HeldSignals;

bool isReadable(int descriptor)
{
    pollfd file{.fd = descriptor, .events = POLLIN, .revents = 0};
    return ::poll(&file, 1, 0) == 1;
}

TEST(HeldSignals, canBeWaitedForAndHaveNoEffect)
{
    const HeldSignals signals{SIGTERM, SIGHUP};
    EXPECT_FALSE(isReadable(signals.descriptor()));
    ::raise(SIGTERM);
    EXPECT_TRUE(isReadable(signals.descriptor()));
    EXPECT_EQ(signals.take(), std::vector<int>{SIGTERM});
    EXPECT_TRUE(signals.take().empty());
}

TEST(HeldSignals, thatAreNotTakenAreForgotten)
{
    const auto leavesASignal = [] {
        const HeldSignals signals{SIGTERM};
        ::raise(SIGTERM);
        return 0;
    };
    EXPECT_EQ(run({.work = leavesASignal}).code, 0);
}

TEST(HeldSignals, haveTheirEffectAgainAfterwards)
{
    const auto raisesLater = [] {
        {
            const HeldSignals signals{SIGTERM};
        }
        ::raise(SIGTERM);
        return 0;
    };
    EXPECT_EQ(run({.work = raisesLater}).signal, SIGTERM);
}

TEST(HeldSignals, leaveOutThoseThatTheProgramWasStartedToIgnore)
{
    const auto ignores = [] {
        ::signal(SIGHUP, SIG_IGN);
        const HeldSignals signals{SIGHUP};
        ::raise(SIGHUP);
        return signals.take().empty() ? 0 : 1;
    };
    EXPECT_EQ(run({.work = ignores}).code, 0);
}

TEST(HeldSignals, canStillEndTheProcess)
{
    const auto ends = [] {
        const HeldSignals signals{SIGHUP};
        base::haveUsualEffect(SIGHUP);
        return 0;
    };
    EXPECT_EQ(run({.work = ends}).signal, SIGHUP);
}

TEST(HeldSignals, canStillStopTheProcess)
{
    const auto stops = [] {
        const HeldSignals signals{SIGTSTP};
        base::haveUsualEffect(SIGTSTP);
        ::raise(SIGTSTP);
        return signals.take().empty() ? 1 : 0;
    };
    Process child({.work = stops});
    EXPECT_TRUE(child.waitForStop());
    child.send(SIGCONT);
    EXPECT_EQ(child.wait().code, 0) << "it continues, and holds the signal as before";
}

TEST(BrokenPipes, areErrorsAndEndNothing)
{
    const auto writesToNobody = [] {
        Pipe pipe;
        pipe.closeReader();
        const BrokenPipesAreErrors brokenPipes;
        return ::write(pipe.writer(), "x", 1) == -1 && errno == EPIPE ? 0 : 1;
    };
    EXPECT_EQ(run({.work = writesToNobody}).code, 0);
}

}  // namespace
}  // namespace quillmere::test
