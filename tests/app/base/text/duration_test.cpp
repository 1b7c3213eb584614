// Durations as people write them.
#include "base/text/duration.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::durationFromText;
using base::durationText;

struct Reading {
    const char* text;
    double seconds;
};

constexpr Reading readings[] = {
    {"25", 1500},
    {"1", 60},
    {"025", 1500},
    {"25m", 1500},
    {"90s", 90},
    {"1s", 1},
    {"1h", 3600},
    {"1h30m", 5400},
    {"1h0m1s", 3601},
    {"2d", 172'800},
    {"1d1h1m1s", 90'061},
    {"1d1s", 86'401},
    {"0h25m", 1500},
    {"366d", 31'622'400},
    {"527040", 31'622'400},
};

TEST(DurationFromText, readsNumbersWithUnitsAndMinutesWithoutAUnit)
{
    for (const Reading& reading : readings) {
        SCOPED_TRACE(reading.text);
        EXPECT_EQ(durationFromText(reading.text), reading.seconds);
    }
}

constexpr const char* noDurations[] = {
    "",
    " ",
    "m",
    "25 m",
    " 25",
    "25 ",
    "25m ",
    "+25",
    "-25",
    "-0m1s",
    "1h-0m",
    "1.5h",
    "1,5h",
    "1h30",
    "30m1h",
    "1m1m",
    "25min",
    "25M",
    "1e3",
    "0x10",
    "inf",
    "nan",
    "1w",
    "h1",
    "1\xC2\xA0h",
    "\xFF",
    // Out of bounds.
    "0",
    "0s",
    "0h0m0s",
    "366d1s",
    "527041",
    "31622401s",
    "9223372036854775807",
    "9223372036854775808",
    "99999999999999999999999999d",
    "9223372036854775807d9223372036854775807h",
};

TEST(DurationFromText, readsNothingElse)
{
    for (const char* text : noDurations) {
        SCOPED_TRACE(text);
        EXPECT_EQ(durationFromText(text), std::nullopt);
    }
}

TEST(DurationFromText, endsWhereTheTextEnds)
{
    EXPECT_EQ(durationFromText(std::string_view("25m30s", 3)), 1500);
    EXPECT_EQ(durationFromText(std::string_view("25\0m", 4)), std::nullopt);
}

struct Writing {
    double seconds;
    const char* text;
};

constexpr Writing writings[] = {
    {0, "0 s"},
    {0.9, "0 s"},
    {1, "1 s"},
    {59.9, "59 s"},
    {60, "1 min"},
    {1500, "25 min"},
    {3600, "1 h"},
    {5400, "1 h 30 min"},
    {3601, "1 h 1 s"},
    {86'400, "1 d"},
    {90'061, "1 d 1 h 1 min 1 s"},
};

TEST(DurationText, leavesOutUnitsThatAreZero)
{
    for (const Writing& writing : writings) {
        EXPECT_EQ(durationText(writing.seconds), writing.text);
    }
}

TEST(HoursText, leavesOutSecondsAndCountsNoDays)
{
    EXPECT_EQ(base::hoursText(412 * 3600 + 30 * 60 + 59), "412 h 30 min");
    EXPECT_EQ(base::hoursText(7200), "2 h");
    EXPECT_EQ(base::hoursText(59), "0 min");
}

}  // namespace
}  // namespace quillmere::test
