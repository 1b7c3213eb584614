#include "base/system/held_signals.hpp"

#include "base/system/wait.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <functional>

#include "support/pipe.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using base::BrokenPipesAreErrors;
using base::HeldSignals;

bool isReadable(int descriptor)
{
    std::array<base::PollSource, 1> sources = {{{descriptor}}};
    return base::waitFor(sources, std::chrono::seconds(0));
}

/// Runs `work` in a child process and returns how the process ended.
ProcessEnding endOf(const std::function<int()>& work) { return Process({.work = work}).wait(); }

TEST(HeldSignals, canBeWaitedForAndHaveNoEffect)
{
    const HeldSignals signals{SIGTERM, SIGHUP};
    EXPECT_FALSE(isReadable(signals.descriptor()));
    ::raise(SIGTERM);
    EXPECT_TRUE(isReadable(signals.descriptor()));
    EXPECT_EQ(signals.take(), std::vector<int>{SIGTERM});
    EXPECT_TRUE(signals.take().empty());
}

TEST(HeldSignals, areDroppedAtTheEndWhenTheyWereNotTaken)
{
    EXPECT_EQ(endOf([] {
                  const HeldSignals signals{SIGTERM};
                  ::raise(SIGTERM);
                  return 0;
              }).code,
              0);
}

TEST(HeldSignals, haveTheirEffectAgainAfterTheEnd)
{
    EXPECT_EQ(endOf([] {
                  {
                      const HeldSignals signals{SIGTERM};
                  }
                  ::raise(SIGTERM);
                  return 0;
              }).signal,
              SIGTERM);
}

TEST(HeldSignals, stayIgnoredWhenTheProgramWasStartedSo)
{
    EXPECT_EQ(endOf([] {
                  ::signal(SIGHUP, SIG_IGN);
                  const HeldSignals signals{SIGHUP};
                  ::raise(SIGHUP);
                  return signals.take().empty() ? 0 : 1;
              }).code,
              0);
}

TEST(HaveUsualEffect, endsTheProcessByABlockedSignal)
{
    EXPECT_EQ(endOf([] {
                  const HeldSignals signals{SIGHUP};
                  base::haveUsualEffect(SIGHUP);
                  return 0;
              }).signal,
              SIGHUP);
}

TEST(HaveUsualEffect, stopsTheProcessAndKeepsTheSignalBlockedAfterwards)
{
    // A child is the leader of a group that is not orphaned: SIGTSTP stops nothing in an orphaned group.
    Process child({.work = [] {
        const HeldSignals signals{SIGTSTP};
        base::haveUsualEffect(SIGTSTP);
        ::raise(SIGTSTP);
        return signals.take().empty() ? 1 : 0;
    }});
    EXPECT_TRUE(child.waitForStop());
    child.send(SIGCONT);
    EXPECT_EQ(child.wait().code, 0);
}

TEST(BrokenPipesAreErrors, makesTheWriteFailInsteadOfEndingTheProcess)
{
    EXPECT_EQ(endOf([] {
                  Pipe pipe;
                  pipe.closeReader();
                  const BrokenPipesAreErrors brokenPipes;
                  return ::write(pipe.writer(), "x", 1) == -1 && errno == EPIPE ? 0 : 1;
              }).code,
              0);
}

}  // namespace
}  // namespace quillmere::test
