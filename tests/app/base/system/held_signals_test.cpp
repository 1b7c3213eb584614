// Signals that a program waits for like anything else.
#include "base/system/held_signals.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmere::test {
namespace {

using base::BrokenPipesAreErrors;
using base::HeldSignals;

bool isReadable(int descriptor)
{
    pollfd file{.fd = descriptor, .events = POLLIN, .revents = 0};
    return ::poll(&file, 1, 0) == 1;
}

/// How a child that does this ends, or that it is stopped (waitpid(2)).
template <typename Action>
int endOf(const Action& action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        action();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, WUNTRACED);
    if (WIFSTOPPED(status)) {
        ::kill(child, SIGCONT);
        int end = 0;
        ::waitpid(child, &end, 0);
        EXPECT_EQ(end, 0) << "it goes on when it is told to, and holds the signal as before";
    }
    return status;
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

TEST(HeldSignals, thatNobodyTookAreForgotten)
{
    EXPECT_EQ(endOf([] {
                  const HeldSignals signals{SIGTERM};
                  ::raise(SIGTERM);
              }),
              0);
}

TEST(HeldSignals, haveTheirEffectAgainAfterwards)
{
    const int status = endOf([] {
        {
            const HeldSignals signals{SIGTERM};
        }
        ::raise(SIGTERM);
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
}

TEST(HeldSignals, areNotThoseThatTheProgramWasStartedToIgnore)
{
    EXPECT_EQ(endOf([] {
                  ::signal(SIGHUP, SIG_IGN);
                  const HeldSignals signals{SIGHUP};
                  ::raise(SIGHUP);
                  ::_exit(signals.take().empty() ? 0 : 1);
              }),
              0);
}

TEST(HeldSignals, canStillEndTheProcess)
{
    const int status = endOf([] {
        const HeldSignals signals{SIGHUP};
        base::haveUsualEffect(SIGHUP);
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGHUP);
}

TEST(HeldSignals, canStillStopTheProcess)
{
    const int status = endOf([] {
        // In a group that nobody looks after, a terminal's signal stops nothing.
        ::setpgid(0, 0);
        const HeldSignals signals{SIGTSTP};
        base::haveUsualEffect(SIGTSTP);
        ::raise(SIGTSTP);
        ::_exit(signals.take().empty() ? 1 : 0);
    });
    EXPECT_TRUE(WIFSTOPPED(status));
}

TEST(BrokenPipes, areErrorsAndNoEnd)
{
    EXPECT_EQ(endOf([] {
                  int ends[2];
                  if (::pipe(ends) != 0) {
                      ::_exit(1);
                  }
                  ::close(ends[0]);
                  const BrokenPipesAreErrors brokenPipes;
                  ::_exit(::write(ends[1], "x", 1) == -1 && errno == EPIPE ? 0 : 1);
              }),
              0);
}

}  // namespace
}  // namespace quillmere::test
