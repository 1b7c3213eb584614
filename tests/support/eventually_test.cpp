#include "support/eventually.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

TEST(Waiting, endsWhenTheConditionHolds)
{
    int calls = 0;
    EXPECT_TRUE(eventually([&] { return ++calls == 3; }));
    EXPECT_EQ(calls, 3);
}

TEST(Waiting, givesUpAndSaysWhatItSawLast)
{
    const auto result = eventually([] { return false; }, [] { return "an empty file"; }, 5ms);
    EXPECT_FALSE(result);
    EXPECT_STREQ(result.message(), "waited in vain for 5 ms; last seen: an empty file");
}

TEST(Waiting, forAValueSaysWhichItHadInstead)
{
    int calls = 0;
    EXPECT_TRUE(eventuallyEquals([&] { return ++calls; }, 3));
    const auto result = eventuallyEquals([] { return 1; }, 2, 5ms);
    EXPECT_FALSE(result);
    EXPECT_STREQ(result.message(), "waited in vain for 5 ms; last seen: 1 instead of 2");
}

}  // namespace
}  // namespace quillmere::test
