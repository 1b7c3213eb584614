// Another process holds the lock and does not release it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iomanip>
#include <sstream>

#include "proofs/crowds/asking_process.hpp"
#include "proofs/crowds/crowd.hpp"
#include "proofs/crowds/shared.hpp"
#include "proofs/support/figures.hpp"
#include "proofs/system_calls/three_files.hpp"

namespace quillmere::test {
namespace {

struct LockedOut {
    int code;
    double seconds;
};

using SteadyClock = std::chrono::steady_clock;

double secondsSince(SteadyClock::time_point begin)
{
    return std::chrono::duration<double>(SteadyClock::now() - begin).count();
}

std::string inSeconds(double seconds)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << seconds << " s";
    return text.str();
}

TEST(AHeldLock, refusesEveryProcessAfterFiveSecondsAndKeepsTheFiles)
{
    const ThreeFiles files(Before::earlierFile);
    const int held = ::open(files.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    const Shared<std::array<LockedOut, crowdSize>> all;
    Crowd crowd;
    for (LockedOut& one : *all) {
        crowd.join([&] {
            const auto begin = SteadyClock::now();
            one.code = startAsking(files.directory(), "May I?").wait().code;
            one.seconds = secondsSince(begin);
            return 0;
        });
    }
    EXPECT_TRUE(crowd.allSucceed());
    ::close(held);

    // A busy machine delays the refusal. Half a minute is longer than any such delay.
    constexpr double longestWait = 30;
    double longest = 0;
    for (const LockedOut& one : *all) {
        EXPECT_EQ(one.code, isLockedOut);
        EXPECT_GE(one.seconds, 5);
        EXPECT_LT(one.seconds, longestWait);
        longest = std::max(longest, one.seconds);
    }
    EXPECT_EQ(files.versions(), (std::vector{Version::older, Version::older, Version::older}));
    EXPECT_EQ(files.others(), std::vector<std::string>{});
    reportFigure("8 × `quillmere ask` beside a held lock", "longest wait until exit code 75",
                 inSeconds(longest));
}

}  // namespace
}  // namespace quillmere::test
