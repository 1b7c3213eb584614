// When a shown clock moves on.
#include "base/system/next_second.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(NextSecond, isNeverNowAndAtMostASecondAway)
{
    EXPECT_EQ(base::millisecondsToNextSecond(moment), 1'000);
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.25), 750);
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.9999), 1);
}

TEST(NextSecond, isRoundedUpSoThatTheSecondHasCome)
{
    EXPECT_EQ(base::millisecondsToNextSecond(moment + 0.2505), 750);
}

TEST(NextMinute, isNeverNowAndAtMostAMinuteAway)
{
    EXPECT_EQ(base::millisecondsToNextMinute(moment), 60'000);
    EXPECT_EQ(base::millisecondsToNextMinute(moment + 59.75), 250);
}

}  // namespace
}  // namespace quillmere::test
