// Instants in the local time zone.
#include "base/text/local_time.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using base::instantFromLocalText;
using base::localClockText;
using base::localText;
using base::localTextSeenFrom;

TEST(LocalText, isInTheLocalTimeZone)
{
    for (const auto& [zone, day, clock] : {std::tuple{"UTC", "2026-11-15 15:00", "15:00"},
                                           std::tuple{"Europe/Berlin", "2026-11-15 16:00", "16:00"},
                                           std::tuple{"America/New_York", "2026-11-15 10:00", "10:00"},
                                           std::tuple{"Asia/Kolkata", "2026-11-15 20:30", "20:30"},
                                           std::tuple{"Pacific/Kiritimati", "2026-11-16 05:00", "05:00"}}) {
        SCOPED_TRACE(zone);
        const TimeZone here(zone);
        EXPECT_EQ(localText(moment), day);
        EXPECT_EQ(localClockText(moment), clock);
        EXPECT_EQ(instantFromLocalText(day, moment + 12'345), moment);
    }
}

TEST(LocalText, showsTwelveHoursToAPersonWhoReadsThem)
{
    const TimeZone here("UTC");
    using enum base::Hours;
    const std::pair<double, std::string> clocks[] = {
        {0, "12:00 am"},
        {59 * 60, "12:59 am"},
        {3600, "1:00 am"},
        {11 * 3600, "11:00 am"},
        {12 * 3600, "12:00 pm"},
        {13 * 3600 + 300, "1:05 pm"},
        {23 * 3600 + 3540, "11:59 pm"},
    };
    for (const auto& [seconds, text] : clocks) {
        EXPECT_EQ(localClockText(Instant(seconds), twelve), text);
        EXPECT_EQ(localText(Instant(seconds), twelve), "1970-01-01 " + text);
    }
    EXPECT_EQ(base::localTextToTheSecond(Instant(13 * 3600 + 5), twelve), "1970-01-01 1:00:05 pm");
    EXPECT_EQ(localTextSeenFrom({Instant(0), twelve}, Instant(13 * 3600)), "1:00 pm");
    EXPECT_EQ(base::localSecondSeenFrom({Instant(0), twelve}, Instant(13 * 3600 + 5)), "1:00:05 pm");
    EXPECT_EQ(localTextSeenFrom({Instant(0), twelve}, Instant(86'400)), "1970-01-02 12:00 am");
}

TEST(LocalText, dropsSecondsTowardThePast)
{
    const TimeZone here("UTC");
    EXPECT_EQ(localText(Instant(59.9)), "1970-01-01 00:00");
    EXPECT_EQ(base::localTextToTheSecond(Instant(59.9)), "1970-01-01 00:00:59");
    EXPECT_EQ(localText(Instant(-0.1)), "1969-12-31 23:59");
    EXPECT_EQ(localText(Instant(253'402'300'799)), "9999-12-31 23:59");
}

TEST(LocalText, hasFourDigitsInEveryYearOfTheFiles)
{
    // Seven days into the year, so that no zone is in another one.
    for (const auto& [text, seconds] :
         {std::pair{"0000-01-08 00:00", -62'166'614'400.0}, std::pair{"0005-01-08 00:00", -62'008'761'600.0},
          std::pair{"0999-12-31 00:00", -30'610'310'400.0}, std::pair{"2262-04-12 00:00", 9'223'372'800.0},
          std::pair{"2500-07-01 00:00", 16'740'864'000.0},
          std::pair{"9999-12-31 00:00", 253'402'214'400.0}}) {
        SCOPED_TRACE(text);
        {
            const TimeZone here("UTC");
            EXPECT_EQ(localText(Instant(seconds)), text);
        }
        for (const char* const zone : {"UTC", "Europe/Berlin", "America/New_York"}) {
            const TimeZone here(zone);
            const Instant now(seconds - 86'400);
            const std::string shown = localText(Instant(seconds));
            EXPECT_EQ(base::localDayText(Instant(seconds)), shown.substr(0, 10));
            // Zones had odd seconds before they had rules.
            EXPECT_NEAR(instantFromLocalText(shown, now).value_or(Instant(0)) - Instant(seconds), 0, 59)
                << shown;
        }
    }
}

TEST(LocalTextSeenFrom, namesAnotherDay)
{
    const TimeZone here("Europe/Berlin");
    // Now it is 16:00 on 15 November.
    EXPECT_EQ(localTextSeenFrom(moment, moment), "16:00");
    EXPECT_EQ(localTextSeenFrom(moment, moment - 16 * 3600), "00:00");
    EXPECT_EQ(localTextSeenFrom(moment, moment - 16 * 3600 - 1), "2026-11-14 23:59");
    EXPECT_EQ(localTextSeenFrom(moment, moment + 8 * 3600 - 1), "23:59");
    EXPECT_EQ(localTextSeenFrom(moment, moment + 8 * 3600), "2026-11-16 00:00");
    EXPECT_EQ(localTextSeenFrom(moment, moment + 365 * 86'400.0), "2027-11-15 16:00");
}

struct TypedTime {
    const char* text;
    double secondsFromNow;
};

// Now it is 15:00:00 on Sunday, 15 November.
constexpr TypedTime typedTimes[] = {
    {"2026-11-15 16:00", 3600},
    {"2026-11-15T16:00", 3600},
    {"2026-11-15 00:00", -54'000},
    {"2027-11-15 15:00", 365 * 86'400.0},
    {"2024-02-29 15:00", -990 * 86'400.0},
    {"15:00", 0},
    {"15:01", 60},
    {"14:59", 86'340},
    {"00:00", 32'400},
    {"9:05", 65'100},
    {"+1m", 60},
    {"+1h30m", 5400},
    {"+25", 1500},
    {"+366d", 366 * 86'400.0},
};

TEST(InstantFromLocalText, readsADayATimeOrADelay)
{
    const TimeZone here("UTC");
    for (const TypedTime& reading : typedTimes) {
        SCOPED_TRACE(reading.text);
        EXPECT_EQ(instantFromLocalText(reading.text, moment), moment + reading.secondsFromNow);
    }
}

constexpr const char* noTimes[] = {
    "",
    "+",
    "+0",
    "+367d",
    "++1h",
    "-1h",
    "noon",
    "15",
    "15:",
    ":30",
    "24:00",
    "15:60",
    "15:00:00",
    "15:00 ",
    "3pm",
    "2026-11-15",
    "2026-11-15 ",
    "2026-11-15 15",
    "2026-11-15 24:00",
    "2026-11-31 10:00",
    "2026-02-29 10:00",
    "2026-13-01 10:00",
    "2026-00-10 10:00",
    "15.11.2026 10:00",
    "11/15/2026 10:00",
    "2026-11-15 15:00Z",
    "2026-11-15T15:00:00",
    "\xFF",
    "15:00\xFF",
};

TEST(InstantFromLocalText, readsNothingElse)
{
    const TimeZone here("UTC");
    for (const char* text : noTimes) {
        SCOPED_TRACE(text);
        EXPECT_EQ(instantFromLocalText(text, moment), std::nullopt);
    }
}

TEST(InstantFromLocalText, findsTomorrowBeyondTheEndOfAMonthAndOfAYear)
{
    const TimeZone here("Europe/Berlin");
    for (const auto& [now, tomorrow] : {std::pair{"2026-11-30 23:00", "2026-12-01 08:00"},
                                        std::pair{"2026-12-31 23:00", "2027-01-01 08:00"},
                                        std::pair{"2028-02-28 23:00", "2028-02-29 08:00"},
                                        std::pair{"2027-02-28 23:00", "2027-03-01 08:00"}}) {
        const Instant evening = *instantFromLocalText(now, moment);
        EXPECT_EQ(localText(*instantFromLocalText("08:00", evening)), tomorrow);
    }
}

TEST(InstantFromLocalText, followsTheChangeOfTheClocks)
{
    const TimeZone here("Europe/Berlin");
    // One night in spring is an hour shorter, one in autumn an hour longer.
    const Instant spring = *instantFromLocalText("2026-03-28 20:00", moment);
    EXPECT_EQ(*instantFromLocalText("08:00", spring) - spring, 11 * 3600);
    EXPECT_EQ(localText(*instantFromLocalText("08:00", spring)), "2026-03-29 08:00");
    const Instant autumn = *instantFromLocalText("2026-10-24 20:00", moment);
    EXPECT_EQ(*instantFromLocalText("08:00", autumn) - autumn, 13 * 3600);
    EXPECT_EQ(localText(*instantFromLocalText("08:00", autumn)), "2026-10-25 08:00");
    EXPECT_EQ(
        *instantFromLocalText("2026-07-01 12:00", moment) - *instantFromLocalText("2026-01-01 12:00", moment),
        181 * 86'400 - 3600);
}

TEST(InstantFromLocalText, isAbsentOutsideTheYearsOfTheFiles)
{
    const TimeZone here("UTC");
    EXPECT_EQ(instantFromLocalText("0000-01-01 00:00", moment), Instant(-62'167'219'200));
    EXPECT_EQ(instantFromLocalText("9999-12-31 23:59", moment), Instant(253'402'300'740));
    EXPECT_EQ(instantFromLocalText("+1m", Instant(253'402'300'740)), std::nullopt);
    const TimeZone west("America/New_York");
    EXPECT_EQ(instantFromLocalText("9999-12-31 23:59", moment), std::nullopt);
    const TimeZone east("Asia/Kolkata");
    EXPECT_EQ(instantFromLocalText("0000-01-01 00:00", moment), std::nullopt);
}

TEST(InstantFromLocalText, isAbsentForATimeThatTheClocksSkip)
{
    const TimeZone here("Europe/Berlin");
    for (const char* text : {"2026-03-29 02:00", "2026-03-29 02:30", "2026-03-29T02:59"}) {
        EXPECT_EQ(instantFromLocalText(text, moment), std::nullopt);
    }
    EXPECT_NE(instantFromLocalText("2026-03-29 01:59", moment), std::nullopt);
    EXPECT_NE(instantFromLocalText("2026-03-29 03:00", moment), std::nullopt);
}

TEST(InstantFromLocalText, meansTheNextDayWhoseClockShowsTheTime)
{
    // 02:30 is skipped that night; the clock shows it again a day later.
    const TimeZone here("Europe/Berlin");
    const Instant midnight = *instantFromLocalText("2026-03-29 00:10", moment);
    EXPECT_EQ(localText(*instantFromLocalText("02:30", midnight)), "2026-03-30 02:30");
    const Instant eveningBefore = *instantFromLocalText("2026-03-28 20:00", moment);
    const auto next = instantFromLocalText("02:30", eveningBefore);
    ASSERT_TRUE(next);
    EXPECT_EQ(localText(*next), "2026-03-30 02:30");
}

struct HourThatComesTwice {
    double secondsFromFirst;  ///< now
    double secondsToNext;     ///< from the first, to the next time the clock shows the same
};

constexpr HourThatComesTwice hoursThatComeTwice[] = {
    {-86'000, 0}, {-1800, 0}, {-60, 0}, {0, 0}, {60, 3600}, {1800, 3600}, {3540, 3600}, {3600, 3600},
};

TEST(InstantFromLocalText, findsTheNextOfTwoTimesThatTheClockShows)
{
    const TimeZone here("Europe/Berlin");
    // 02:30 occurs at 00:30 and at 01:30 UTC that night.
    const Instant first{1'792'888'200};
    for (const HourThatComesTwice& hour : hoursThatComeTwice) {
        SCOPED_TRACE(hour.secondsFromFirst);
        const Instant now = first + hour.secondsFromFirst;
        EXPECT_EQ(instantFromLocalText("02:30", now), first + hour.secondsToNext);
        EXPECT_EQ(instantFromLocalText("2026-10-25 02:30", now), first + hour.secondsToNext);
    }
    EXPECT_EQ(localText(*instantFromLocalText("02:30", first + 3660)), "2026-10-26 02:30");
}

TEST(PastInstantFromLocalText, meansTheLastTimeAtWhichTheClockShowedIt)
{
    const TimeZone here("Europe/Berlin");  // 16:00
    for (const auto& [text, instant] :
         {std::pair{"15:50", moment - 600}, std::pair{"16:00", moment}, std::pair{"15:59:30", moment - 30},
          std::pair{"16:01", moment + 60 - 86'400}, std::pair{"2026-11-15 15:50", moment - 600},
          std::pair{"2026-11-15T15:50:01", moment - 599}, std::pair{"2026-11-15 16:10", moment + 600}}) {
        EXPECT_EQ(base::pastInstantFromLocalText(text, moment + 0.5), instant) << text;
    }
}

TEST(PastInstantFromLocalText, meansTheLastOfTwoTimesThatTheClockShowed)
{
    // On 25 October 2026 the hour from 2:00 occurs twice; the second 2:30 is at 1:30 UTC.
    const TimeZone here("Europe/Berlin");
    const Instant second(1'792'891'800);
    EXPECT_EQ(base::localText(second), "2026-10-25 02:30");
    EXPECT_EQ(base::pastInstantFromLocalText("02:30", second + 60), second);
    EXPECT_EQ(base::pastInstantFromLocalText("02:30", second - 60), second - 3'600);
    EXPECT_EQ(base::pastInstantFromLocalText("2026-10-25 02:30", second + 86'400), second);
}

TEST(PastInstantFromLocalText, readsNothingElse)
{
    const TimeZone here("UTC");
    for (const char* const text :
         {"", "noon", "24:00", "15:60", "+1h", "10m", "15:00 ", "2026-11-15", "-1"}) {
        EXPECT_EQ(base::pastInstantFromLocalText(text, moment), std::nullopt) << text;
    }
}

TEST(LocalSecondSeenFrom, namesAnotherDay)
{
    const TimeZone here("UTC");
    EXPECT_EQ(base::localSecondSeenFrom(moment, moment + 5), "15:00:05");
    EXPECT_EQ(base::localSecondSeenFrom(moment, moment - 86'395), "2026-11-14 15:00:05");
}

}  // namespace
}  // namespace quillmere::test
