// Pauses after failures grow.
#include "notices/backoff.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::Moment;
using notices::Backoff;
using std::chrono::seconds;

/// The length in seconds of the pause that begins now.
int pauseOf(const Backoff& backoff, base::Moment now)
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
    base::Moment now{seconds(100)};
    EXPECT_FALSE(backoff.isPausing(now));
    for (const int pause : {2, 4, 8, 16, 32, 60, 60}) {
        backoff.failed(now);
        EXPECT_EQ(pauseOf(backoff, now), pause);
        now += seconds(1'000);
    }
}

TEST(Backoff, startsAgainAfterASuccess)
{
    Backoff backoff;
    const base::Moment now{seconds(100)};
    backoff.failed(now);
    backoff.failed(now);
    backoff.succeeded();
    EXPECT_FALSE(backoff.isPausing(now));
    backoff.failed(now);
    EXPECT_EQ(pauseOf(backoff, now), 2);
}

}  // namespace
}  // namespace quillmere::test
