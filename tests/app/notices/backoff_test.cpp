// What fails is tried again, less and less often.
#include "notices/backoff.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using notices::Backoff;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// How many seconds the pause lasts that begins now.
int pauseOf(const Backoff& backoff, Backoff::Moment now)
{
    int count = 0;
    while (backoff.isPausing(now + seconds(count))) {
        ++count;
    }
    return count;
}

TEST(Backoff, doublesItsPausesUpToAMinute)
{
    Backoff backoff;
    Backoff::Moment now{seconds(100)};
    EXPECT_FALSE(backoff.isPausing(now));
    for (const int pause : {2, 4, 8, 16, 32, 60, 60}) {
        backoff.failed(now);
        EXPECT_EQ(pauseOf(backoff, now), pause);
        now += seconds(1'000);
    }
}

TEST(Backoff, beginsAnewAfterASuccess)
{
    Backoff backoff;
    const Backoff::Moment now{seconds(100)};
    backoff.failed(now);
    backoff.failed(now);
    backoff.worked();
    EXPECT_FALSE(backoff.isPausing(now));
    backoff.failed(now);
    EXPECT_EQ(pauseOf(backoff, now), 2);
}

}  // namespace
}  // namespace quillmere::test
