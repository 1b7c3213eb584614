#include "base/system/clock_changes.hpp"

#include "base/system/wait.hpp"

#include <gtest/gtest.h>
#include <time.h>

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

bool isReadable(const base::ClockChanges& changes)
{
    base::PollSource source{.descriptor = changes.descriptor()};
    return base::waitFor({&source, 1}, 0ns);
}

/// Sets the clock to what it shows. Returns false where only the system's administrator may.
bool setsTheClock()
{
    timespec present{};
    return ::clock_gettime(CLOCK_REALTIME, &present) == 0 && ::clock_settime(CLOCK_REALTIME, &present) == 0;
}

TEST(ClockChanges, areNoneWhileTheClockGoesOn)
{
    base::ClockChanges changes;
    EXPECT_FALSE(isReadable(changes));
    changes.take();
    EXPECT_FALSE(isReadable(changes));
}

TEST(ClockChanges, areSeenEachTimeTheClockIsSet)
{
    base::ClockChanges changes;
    for (int time = 0; time < 2; ++time) {
        if (!setsTheClock()) {
            GTEST_SKIP() << "this user must not set the clock";
        }
        EXPECT_TRUE(isReadable(changes));
        changes.take();
        EXPECT_FALSE(isReadable(changes));
    }
}

}  // namespace
}  // namespace quillmere::test
