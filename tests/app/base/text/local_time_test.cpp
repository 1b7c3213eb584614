// Instants in the local time zone.
#include "base/text/local_time.hpp"

#include "base/text/typed_time.hpp"

#include "figures_testing.hpp"

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

TEST(LocalSecondSeenFrom, namesAnotherDay)
{
    const TimeZone here("UTC");
    EXPECT_EQ(base::localSecondSeenFrom(moment, moment + 5), "15:00:05");
    EXPECT_EQ(base::localSecondSeenFrom(moment, moment - 86'395), "2026-11-14 15:00:05");
}

TEST(LocalTextInFull, namesTheWeekdayAndTheDay)
{
    const TimeZone here("Europe/Berlin");
    EXPECT_EQ(base::localTextInFull(moment + 5), "Sun 15 Nov 2026, 16:00");
    EXPECT_EQ(base::localSecondInFull(moment), "Sun 15 Nov 2026, 16:00");
    EXPECT_EQ(base::localSecondInFull(moment + 5), "Sun 15 Nov 2026, 16:00:05");
    EXPECT_EQ(base::localTextInFull(local("2027-01-01 00:00")), "Fri 1 Jan 2027, 00:00");
}

TEST(LocalTextInFull, saysWhichOfTwoTimesItIs)
{
    const TimeZone here("Europe/Berlin");
    const Instant first{1'792'888'200};
    EXPECT_EQ(base::localTextInFull(first),
              "Sun 25 Oct 2026, 02:30 (the first of two: the clocks are set back that day)");
    EXPECT_EQ(base::localTextInFull(first + 3600),
              "Sun 25 Oct 2026, 02:30 (the second of two: the clocks are set back that day)");
    EXPECT_EQ(base::localTextInFull(first - 1800.5), "Sun 25 Oct 2026, 01:59");
    EXPECT_EQ(base::localTextInFull(first + 5400), "Sun 25 Oct 2026, 03:00");
}

TEST(LocalTextInFull, saysWhichTimeTheClocksSkip)
{
    const TimeZone here("Europe/Berlin");
    const Instant change{1'774'746'000};  // 03:00 instead of 02:00
    EXPECT_EQ(base::localTextInFull(change + 1800),
              "Sun 29 Mar 2026, 03:30 (the clocks are set forward that day, and 02:30 is left out)");
    EXPECT_EQ(base::localTextInFull(change + 1800, base::Hours::twelve),
              "Sun 29 Mar 2026, 3:30 am (the clocks are set forward that day, and 2:30 am is left out)");
    EXPECT_EQ(base::localTextInFull(change - 1), "Sun 29 Mar 2026, 01:59");
    EXPECT_EQ(base::localTextInFull(change + 3600), "Sun 29 Mar 2026, 04:00");
}

TEST(InstantsOfLocalTime, areAsManyAsTheClocksShow)
{
    const auto noon = [](const char* text) { return day(text) + std::chrono::hours(12); };
    for (const auto& [zone, text, hours, utc] :
         {std::tuple{"Europe/Berlin", "2026-11-15", 4, std::vector<double>{1'794'754'800}},
          std::tuple{"Europe/Berlin", "2026-10-25", -10, std::vector<double>{1'792'886'400, 1'792'890'000}},
          std::tuple{"Europe/Berlin", "2026-03-29", -10, std::vector<double>{1'774'746'000}},
          // The whole day was left out.
          std::tuple{"Pacific/Apia", "2011-12-30", 0, std::vector<double>{1'325'282'400}}}) {
        const TimeZone here(zone);
        std::vector<Instant> expected;
        for (const double seconds : utc) {
            expected.emplace_back(seconds);
        }
        EXPECT_EQ(base::instantsOfLocalTime(noon(text) + std::chrono::hours(hours)), expected) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
