// Times as a person types them.
#include "base/text/typed_time.hpp"

#include "base/text/local_time.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using base::instantFromLocalText;
using base::localText;

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
    {"in 20m", 1200},
    {"In 1h30m", 5400},
    {"9am", 64'800},
    {"3pm", 0},
    {"3 PM", 0},
    {"9:30pm", 23'400},
    {"12am", 32'400},
    {"12pm", 75'600},
    {"12:05 pm", 75'900},
    {"15:00:30", 30},
    {" 15:01 ", 60},
    {"today 14:59", -60},
    {"TODAY 4pm", 3600},
    {"tomorrow 9:00", 64'800},
    {"Tomorrow 9am", 64'800},
    {"yesterday 17:00", 7200 - 86'400},
    {"sun 15:00", 0},
    {"sun 14:59", 7 * 86'400.0 - 60},
    {"mon 14:00", 86'400 - 3600},
    {"Monday  2 pm", 86'400 - 3600},
    {"SAT 15:00", 6 * 86'400.0},
    {"2026-11-16 9am", 64'800},
    {"2026-11-15t16:00", 3600},
};

TEST(InstantFromLocalText, readsATimeOfDayAfterADayOrADelay)
{
    const TimeZone here("UTC");
    for (const TypedTime& reading : typedTimes) {
        SCOPED_TRACE(reading.text);
        EXPECT_EQ(instantFromLocalText(reading.text, moment), moment + reading.secondsFromNow);
    }
}

constexpr const char* noTimes[] = {
    "",
    " ",
    "+",
    "+0",
    "+367d",
    "++1h",
    "-1h",
    "in",
    "in 0m",
    "in 1 h",
    "in 1h 30m",
    "in +1h",
    "1h",
    "noon",
    "15",
    "930",
    "am",
    "0am",
    "13pm",
    "9a",
    "9 am pm",
    "15:",
    ":30",
    "9::30",
    "9:030",
    "24:00",
    "15:60",
    "15:00:60",
    "15:00:00:00",
    "-9:00",
    "9:-5",
    "mon",
    "tomorrow",
    "mon 14",
    "mo 14:00",
    "mond 14:00",
    "mon tue 14:00",
    "14:00 mon",
    "in 14:00",
    "2026-11-15",
    "2026-11-15 ",
    "2026-11-15 15",
    "2026-11-15 24:00",
    "2026-11-31 10:00",
    "2026-02-29 10:00",
    "2026-13-01 10:00",
    "2026-00-10 10:00",
    "26-11-15 10:00",
    "15.11.2026 10:00",
    "11/15/2026 10:00",
    "2026-11-15 15:00Z",
    "2026-11-15T",
    "2026-11-15T15:00T16:00",
    "15:00\t",
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

TEST(InstantFromLocalText, findsTheDayInTheLocalTimeZone)
{
    // Half past midnight on Monday, where it is Sunday evening in UTC.
    const TimeZone here("Europe/Berlin");
    const Instant night = moment + 8.5 * 3600;
    EXPECT_EQ(localText(*instantFromLocalText("tomorrow 9:00", night)), "2026-11-17 09:00");
    EXPECT_EQ(localText(*instantFromLocalText("mon 9:00", night)), "2026-11-16 09:00");
    EXPECT_EQ(localText(*base::pastInstantFromLocalText("yesterday 23:50", night)), "2026-11-15 23:50");
    EXPECT_EQ(localText(*base::pastInstantFromLocalText("23:50", night)), "2026-11-15 23:50");
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

TEST(InstantFromLocalText, takesTheTimeThatTheClocksShowForOneThatTheySkip)
{
    const TimeZone here("Europe/Berlin");
    for (const auto& [skipped, shown] : {std::pair{"2026-03-29 02:00", "2026-03-29 03:00"},
                                         std::pair{"2026-03-29 02:30", "2026-03-29 03:30"},
                                         std::pair{"2026-03-29T02:59", "2026-03-29 03:59"}}) {
        EXPECT_EQ(localText(*instantFromLocalText(skipped, moment)), shown);
        EXPECT_EQ(localText(*base::pastInstantFromLocalText(skipped, moment)), shown);
    }
    const Instant eveningBefore = *instantFromLocalText("2026-03-28 20:00", moment);
    for (const char* const text : {"02:30", "tomorrow 2:30", "sun 2:30am"}) {
        EXPECT_EQ(localText(*instantFromLocalText(text, eveningBefore)), "2026-03-29 03:30") << text;
    }
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

TEST(InstantFromLocalText, readsWhatIsShownOnEitherClock)
{
    const TimeZone here("UTC");
    for (const base::Hours hours : {base::Hours::twelve, base::Hours::twentyFour}) {
        for (int minute = 0; minute < 24 * 60; minute += 30) {
            for (const int around : {-1, 0, 1}) {
                const Instant instant = moment + (minute + around) * 60;
                for (const std::string& text :
                     {localText(instant, hours), base::localTextToTheSecond(instant, hours)}) {
                    EXPECT_EQ(instantFromLocalText(text, moment), instant) << text;
                    EXPECT_EQ(base::pastInstantFromLocalText(text, moment), instant) << text;
                }
            }
        }
    }
}

TEST(PastInstantFromLocalText, meansTheLastTimeAtWhichTheClockShowedIt)
{
    const TimeZone here("Europe/Berlin");  // 16:00
    for (const auto& [text, instant] :
         {std::pair{"15:50", moment - 600}, std::pair{"16:00", moment}, std::pair{"15:59:30", moment - 30},
          std::pair{"16:01", moment + 60 - 86'400}, std::pair{"2026-11-15 15:50", moment - 600},
          std::pair{"2026-11-15T15:50:01", moment - 599}, std::pair{"2026-11-15 16:10", moment + 600},
          std::pair{"3:50pm", moment - 600}, std::pair{"today 16:10", moment + 600},
          std::pair{"yesterday 17:00", moment + 3600 - 86'400}, std::pair{"sun 16:00", moment},
          std::pair{"sun 16:01", moment + 60 - 7 * 86'400}, std::pair{"Sat 16:01", moment + 60 - 86'400},
          std::pair{"monday 16:00", moment - 6 * 86'400}}) {
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
         {"", "noon", "24:00", "15:60", "+1h", "in 20m", "10m", "2026-11-15", "mon", "-1"}) {
        EXPECT_EQ(base::pastInstantFromLocalText(text, moment), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
