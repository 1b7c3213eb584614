#include <quillmere/records/base/checked_arithmetic.hpp>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "support/extreme_numbers.hpp"

namespace quillmere::test {
namespace {

struct Whole {
    double seconds;
    std::int64_t expected;
};

constexpr auto wholes = std::to_array<Whole>({
    {0, 0},
    {-0.0, 0},
    {0.999, 0},
    {1, 1},
    {600.9, 600},
    {-0.001, -1},
    {-0.5, -1},
    {-1, -1},
    {-1.001, -2},
    {smallest, 0},
    {-smallest, -1},
    // Above 2^52 every double is whole.
    {0x1p52 + 1, 4'503'599'627'370'497},
    {-0x1p63, least},
    // The largest double below 2^63, and its negative.
    {0x1.fffffffffffffp62, 9'223'372'036'854'774'784},
    {-0x1.fffffffffffffp62, -9'223'372'036'854'774'784},
});

TEST(WholeSeconds, areRoundedTowardThePast)
{
    for (const auto& [seconds, expected] : wholes) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(wholeSeconds(seconds), expected);
    }
}

TEST(WholeSecondsDeathTest, stopTheProgramForADurationThatDoesNotFit64Bits)
{
    for (const double seconds : {0x1p63, std::nextafter(-0x1p63, -infinity), 1e300, -1e300, infinity,
                                 -infinity, notANumber, -notANumber}) {
        SCOPED_TRACE(seconds);
        EXPECT_DEATH(wholeSeconds(seconds), "a duration is not a number of seconds that fits 64 bits");
    }
}

struct Difference {
    std::int64_t minuend;
    std::int64_t subtrahend;
    std::int64_t expected;
};

constexpr auto differences = std::to_array<Difference>({
    {1500, 600, 900},
    {1500, 1600, -100},
    {0, 0, 0},
    {most, most, 0},
    {least, least, 0},
    {0, most, -most},
    {-1, most, least},
    {-1, least, most},
    {most, 0, most},
    {least, 0, least},
});

TEST(CheckedDifference, isExactUpToTheEdges)
{
    for (const auto& [minuend, subtrahend, expected] : differences) {
        SCOPED_TRACE(std::to_string(minuend) + " - " + std::to_string(subtrahend));
        EXPECT_EQ(checkedDifference(minuend, subtrahend), expected);
    }
}

TEST(CheckedDifferenceDeathTest, stopsTheProgramOverAnOverflow)
{
    for (const auto& [minuend, subtrahend] : std::to_array<std::array<std::int64_t, 2>>(
             {{least, 1}, {most, -1}, {0, least}, {-2, most}, {most, least}, {least, most}})) {
        SCOPED_TRACE(std::to_string(minuend) + " - " + std::to_string(subtrahend));
        EXPECT_DEATH(checkedDifference(minuend, subtrahend),
                     "a difference of whole numbers overflows 64 bits");
    }
}

TEST(CheckedMagnitude, isTheAbsoluteValue)
{
    for (const std::int64_t value : {std::int64_t{0}, std::int64_t{1}, std::int64_t{100}, most}) {
        EXPECT_EQ(checkedMagnitude(value), value);
        EXPECT_EQ(checkedMagnitude(-value), value);
    }
}

TEST(CheckedMagnitudeDeathTest, stopsTheProgramOverTheMostNegativeNumber)
{
    EXPECT_DEATH(checkedMagnitude(least), "a difference of whole numbers overflows 64 bits");
}

}  // namespace
}  // namespace quillmere::test
