#include "base/system/sleep_detector.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using base::Sleep;

TEST(SleepDetector, findsASleepOfAMinuteOnce)
{
    double suspended = 500;
    base::SleepDetector detector([&] { return suspended; });
    EXPECT_FALSE(detector.take(moment));
    suspended += 60;
    EXPECT_EQ(detector.take(moment + 100), (Sleep{.from = moment + 40, .to = moment + 100}));
    EXPECT_FALSE(detector.take(moment + 101));
    EXPECT_EQ(detector.totalSeconds(), 560);
}

TEST(SleepDetector, ignoresASleepOfLess)
{
    double suspended = 0;
    base::SleepDetector detector([&] { return suspended; });
    suspended = 59.9;
    EXPECT_FALSE(detector.take(moment + 100));
}

TEST(SuspendedSeconds, neverShrink)
{
    const double before = base::suspendedSeconds();
    EXPECT_GE(before, 0);
    EXPECT_GE(base::suspendedSeconds() + 0.001, before);
}

}  // namespace
}  // namespace quillmere::test
