// First days of weeks and months, and where days begin.
#include "figures/local_day.hpp"

#include "figures_testing.hpp"
#include "lookback/day_text.hpp"

namespace quillmere::test {
namespace {

using figures::firstOf;
using figures::LocalCalendar;
using figures::oneDay;
using lookback::labelOf;

struct Firsts {
    const char* day;
    const char* ofWeek;
    const char* ofMonth;
};

constexpr Firsts firsts[] = {
    {"2026-11-15", "2026-11-09", "2026-11-01"}, {"2026-11-16", "2026-11-16", "2026-11-01"},
    {"2027-01-01", "2026-12-28", "2027-01-01"}, {"2024-02-29", "2024-02-26", "2024-02-01"},
    {"0001-01-01", "0001-01-01", "0001-01-01"}, {"9999-12-31", "9999-12-27", "9999-12-01"},
};

TEST(FirstOf, isTheMondayOfTheWeekAndTheFirstDayOfTheMonth)
{
    for (const Firsts& each : firsts) {
        SCOPED_TRACE(each.day);
        EXPECT_EQ(firstOf(Unit::day, day(each.day)), day(each.day));
        EXPECT_EQ(firstOf(Unit::week, day(each.day)), day(each.ofWeek));
        EXPECT_EQ(firstOf(Unit::month, day(each.day)), day(each.ofMonth));
    }
}

struct DayOfZone {
    const char* zone;
    const char* day;
    double startUtc;  ///< seconds since 1970
    double hours;
};

constexpr DayOfZone daysOfZones[] = {
    {"UTC", "2026-11-15", 1794700800, 24},
    {"Europe/Berlin", "2026-11-15", 1794697200, 24},
    {"Europe/Berlin", "2026-03-29", 1774738800, 23},  // summer time begins
    {"Europe/Berlin", "2026-10-25", 1792879200, 25},  // and ends
    {"America/New_York", "2026-03-08", 1772946000, 23},
    {"America/New_York", "2026-11-01", 1793505600, 25},
    {"Asia/Kathmandu", "2026-11-15", 1794680100, 24},     // 5 h 45 min
    {"America/Sao_Paulo", "2018-11-04", 1541300400, 23},  // from 00:00 to 01:00
    {"America/Sao_Paulo", "2018-02-17", 1518832800, 25},  // at 24:00 back to 23:00
    {"America/Havana", "2026-11-01", 1793505600, 25},     // midnight comes twice
    {"Africa/Cairo", "2026-04-24", 1776981600, 23},       // from 00:00 to 01:00
    {"Pacific/Apia", "2011-12-29", 1325152800, 24},       // the next day was left out
    {"Pacific/Apia", "2011-12-30", 1325239200, 0},
    {"Pacific/Apia", "2011-12-31", 1325239200, 24},
    {"Pacific/Kiritimati", "2026-11-15", 1794650400, 24},
};

TEST(LocalCalendar, findsTheStartOfADayWhenTheClocksChange)
{
    for (const DayOfZone& each : daysOfZones) {
        SCOPED_TRACE(each.zone);
        SCOPED_TRACE(each.day);
        const TimeZone here(each.zone);
        LocalCalendar calendar;
        const Day asked = day(each.day);
        EXPECT_EQ(calendar.startOf(asked).secondsSince1970(), each.startUtc);
        EXPECT_EQ(calendar.startOf(asked + oneDay) - calendar.startOf(asked), each.hours * 3600);
        if (each.hours > 0) {
            EXPECT_EQ(calendar.dayOf(calendar.startOf(asked)), asked);
            EXPECT_EQ(calendar.dayOf(calendar.startOf(asked + oneDay) - 0.5), asked);
        }
    }
}

TEST(FirstOf, isTheDayOnWhichThePersonsWeekBegins)
{
    EXPECT_EQ(firstOf(Unit::week, day("2026-11-15"), std::chrono::Sunday), day("2026-11-15"));
    EXPECT_EQ(firstOf(Unit::week, day("2026-11-14"), std::chrono::Sunday), day("2026-11-08"));
    EXPECT_EQ(firstOf(Unit::month, day("2026-11-14"), std::chrono::Sunday), day("2026-11-01"));
}

TEST(LocalCalendar, countsTheNightForTheDayBeforeWhereDaysBeginLater)
{
    const TimeZone here("Europe/Berlin");
    LocalCalendar calendar(4);
    EXPECT_EQ(calendar.dayOf(local("2026-11-15 03:59")), day("2026-11-14"));
    EXPECT_EQ(calendar.dayOf(local("2026-11-15 04:00")), day("2026-11-15"));
    for (const char* const text : {"2026-11-15", "2026-03-29", "2026-10-25", "2026-10-24"}) {
        EXPECT_EQ(calendar.startOf(day(text)), local(std::string(text) + " 04:00"));
    }
}

TEST(LocalCalendar, findsTheStartOfADayThatBeginsAtItsLastHour)
{
    for (const char* const zone : {"UTC", "Pacific/Kiritimati", "Pacific/Pago_Pago"}) {
        const TimeZone here(zone);
        LocalCalendar calendar(23);
        EXPECT_EQ(calendar.startOf(day("2026-11-15")), local("2026-11-15 23:00")) << zone;
    }
}

TEST(ForEachDay, dividesATimeAmongItsDays)
{
    const TimeZone here("Europe/Berlin");
    LocalCalendar calendar;
    std::string parts;
    calendar.forEachDay(local("2026-10-24 23:30"), 26.5 * 3600, [&](Day part, double seconds) {
        parts += labelOf(Unit::day, part) + " " + std::to_string(static_cast<int>(seconds)) + ", ";
    });
    EXPECT_EQ(parts, "2026-10-24 1800, 2026-10-25 90000, 2026-10-26 3600, ");
}

TEST(ForEachDay, visitsNoDayWithoutTime)
{
    LocalCalendar calendar;
    calendar.forEachDay(moment, 0, [](Day, double) { FAIL(); });
}

}  // namespace
}  // namespace quillmere::test
