#include "base/system/next_second.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

TEST(NextSecond, isOneMillisecondToOneSecondAway)
{
    EXPECT_EQ(base::timeToNextSecond(moment), 1'000ms);
    EXPECT_EQ(base::timeToNextSecond(moment + 0.25), 750ms);
    EXPECT_EQ(base::timeToNextSecond(moment + 0.9999), 1ms);
}

TEST(NextSecond, isRoundedUpSoThatAWaitDoesNotEndBeforeIt)
{
    EXPECT_EQ(base::timeToNextSecond(moment + 0.2505), 750ms);
}

TEST(NextSecond, isAtMostASecondAwayInEveryYear)
{
    for (const double seconds : {-62'167'219'199.75, -0.75, 9'223'372'036.25, 253'402'300'799.25}) {
        EXPECT_EQ(base::timeToNextSecond(Instant(seconds)), 750ms) << seconds;
    }
    for (const double seconds : {1e16, -1e16, 1e300}) {
        EXPECT_GE(base::timeToNextSecond(Instant(seconds)), 1ms) << seconds;
        EXPECT_LE(base::timeToNextSecond(Instant(seconds)), 1'000ms) << seconds;
        EXPECT_LE(base::timeToNextMinute(Instant(seconds)), 60'000ms) << seconds;
    }
}

TEST(NextMinute, isAtMostAMinuteAway)
{
    EXPECT_EQ(base::timeToNextMinute(moment), 60'000ms);
    EXPECT_EQ(base::timeToNextMinute(moment + 59.75), 250ms);
}

}  // namespace
}  // namespace quillmere::test
