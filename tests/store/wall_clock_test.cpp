// The clock of the system, also in years in which this test will not run.
#include <quillmere/store/wall_clock.hpp>

#include <gtest/gtest.h>
#include <quillmere/store/state_store.hpp>

#include <ctime>
#include <optional>

#include "support/temporary_directory.hpp"

namespace {

/// What the clock shows; absent: the present.
std::optional<timespec> shownTime;

}  // namespace

// The linker gives these names to the call and to its substitute (ld, --wrap).
extern "C" {
int __real_clock_gettime(clockid_t clock, timespec* time);
int __wrap_clock_gettime(clockid_t clock, timespec* time);

int __wrap_clock_gettime(clockid_t clock, timespec* time)
{
    if (!shownTime || clock != CLOCK_REALTIME) {
        return __real_clock_gettime(clock, time);
    }
    *time = *shownTime;
    return 0;
}
}

namespace quillmere::test {
namespace {

/// What the wall clock returns while the clock of the system shows a time.
Instant wallClockAt(time_t seconds, long nanoseconds)
{
    shownTime = timespec{.tv_sec = seconds, .tv_nsec = nanoseconds};
    const Instant instant = wallClock();
    shownTime.reset();
    return instant;
}

TEST(WallClock, knowsEveryYearOfTheFiles)
{
    const time_t times[] = {
        -62'167'219'200,  // 0000-01-01
        -1,
        0,
        1'794'754'800,
        9'223'372'036,  // 2262-04-11, the last second of a count of nanoseconds in 64 bits
        9'223'372'037,
        253'402'300'799,  // 9999-12-31
    };
    for (const time_t seconds : times) {
        EXPECT_EQ(wallClockAt(seconds, 500'000'000), Instant(static_cast<double>(seconds) + 0.5));
    }
}

TEST(WallClock, isThatOfTheSystem)
{
    const std::time_t before = std::time(nullptr);
    const Instant now = wallClock();
    EXPECT_GE(now, Instant(static_cast<double>(before)));
    EXPECT_LE(now, Instant(static_cast<double>(std::time(nullptr)) + 1));
}

TEST(WallClock, isThatOfAStoreWithoutAnother)
{
    const TemporaryDirectory directory;
    constexpr time_t inTheYear9000 = 221'845'392'000;
    shownTime = timespec{.tv_sec = inTheYear9000, .tv_nsec = 0};
    const QuillmereState state = StateStore(directory.path(), StateStore::renameReplacing).load();
    shownTime.reset();
    EXPECT_EQ(state.updatedAt, Instant(inTheYear9000));
}

}  // namespace
}  // namespace quillmere::test
