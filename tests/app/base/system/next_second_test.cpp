#include "base/system/next_second.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(NextSecond, isOneMillisecondToOneSecondAway)
{
    EXPECT_EQ(base::millisecondsToNextSecond(moment), 1'000);
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.25), 750);
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.9999), 1);
}

TEST(NextSecond, isRoundedUpSoThatAWaitDoesNotEndBeforeIt)
{
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.2505), 750);
}

TEST(NextSecond, isAtMostASecondAwayInEveryYear)
{
    for (const double seconds : {-62'167'219'199.75, -0.75, 9'223'372'036.25, 253'402'300'799.25}) {
        EXPECT_EQ(base::millisecondsToNextSecond(Instant(seconds)), 750) << seconds;
    }
    for (const double seconds : {1e16, -1e16, 1e300}) {
        EXPECT_GE(base::millisecondsToNextSecond(Instant(seconds)), 1) << seconds;
        EXPECT_LE(base::millisecondsToNextSecond(Instant(seconds)), 1'000) << seconds;
        EXPECT_LE(base::millisecondsToNextMinute(Instant(seconds)), 60'000) << seconds;
    }
}

TEST(NextMinute, isAtMostAMinuteAway)
{
    EXPECT_EQ(base::millisecondsToNextMinute(moment), 60'000);
    EXPECT_EQ(base::millisecondsToNextMinute(moment + 59.75), 250);
}

}  // namespace
}  // namespace quillmere::test
