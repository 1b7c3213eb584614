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

TEST(NextMinute, isAtMostAMinuteAway)
{
    EXPECT_EQ(base::millisecondsToNextMinute(moment), 60'000);
    EXPECT_EQ(base::millisecondsToNextMinute(moment + 59.75), 250);
}

}  // namespace
}  // namespace quillmere::test
