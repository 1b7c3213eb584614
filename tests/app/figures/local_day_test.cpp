// Days, weeks and months, and where days begin.
#include "figures/local_day.hpp"

#include "figures_testing.hpp"

namespace quillmere::test {
namespace {

using figures::dayFromText;
using figures::firstOf;
using figures::labelOf;
using figures::LocalCalendar;
using figures::oneDay;
using figures::shortLabelOf;

struct Labels {
    const char* day;
    const char* week;
    const char* monday;
    const char* month;
};

// Weeks around the turn of years (ISO 8601).
constexpr Labels labels[] = {
    {"2026-11-15", "2026-W46", "2026-11-09", "2026-11"}, {"2026-11-16", "2026-W47", "2026-11-16", "2026-11"},
    {"2026-12-31", "2026-W53", "2026-12-28", "2026-12"}, {"2027-01-01", "2026-W53", "2026-12-28", "2027-01"},
    {"2027-01-03", "2026-W53", "2026-12-28", "2027-01"}, {"2027-01-04", "2027-W01", "2027-01-04", "2027-01"},
    {"2024-12-30", "2025-W01", "2024-12-30", "2024-12"}, {"2024-02-29", "2024-W09", "2024-02-26", "2024-02"},
    {"2021-01-03", "2020-W53", "2020-12-28", "2021-01"}, {"2008-12-29", "2009-W01", "2008-12-29", "2008-12"},
    {"0001-01-01", "0001-W01", "0001-01-01", "0001-01"}, {"9999-12-31", "9999-W52", "9999-12-27", "9999-12"},
};

TEST(LocalDay, hasAWeekThatBeginsOnMondayAndAMonth)
{
    for (const Labels& each : labels) {
        SCOPED_TRACE(each.day);
        const Day read = day(each.day);
        EXPECT_EQ(labelOf(Unit::day, read), each.day);
        EXPECT_EQ(labelOf(Unit::week, read), each.week);
        EXPECT_EQ(labelOf(Unit::day, firstOf(Unit::week, read)), each.monday);
        EXPECT_EQ(labelOf(Unit::month, read), each.month);
        EXPECT_EQ(labelOf(Unit::day, firstOf(Unit::month, read)), each.month + std::string("-01"));
        EXPECT_EQ(firstOf(Unit::day, read), read);
    }
}

TEST(LocalDay, hasShortNames)
{
    EXPECT_EQ(shortLabelOf(Unit::day, day("2026-03-05")), "5 Mar");
    EXPECT_EQ(shortLabelOf(Unit::week, day("2026-03-05")), "W10");
    EXPECT_EQ(shortLabelOf(Unit::month, day("2026-03-05")), "Mar");
    EXPECT_EQ(figures::weekdayText(day("2026-11-15")), "Sun");
    EXPECT_EQ(figures::weekdayText(day("2026-11-16")), "Mon");
}

TEST(LocalDay, isReadFromADateOrFromTheDaysSince)
{
    const Day today = day("2026-11-15");
    EXPECT_EQ(dayFromText("today", today), today);
    EXPECT_EQ(dayFromText("0d", today), today);
    EXPECT_EQ(dayFromText("30d", today), day("2026-10-16"));
    EXPECT_EQ(dayFromText("2024-02-29", today), day("2024-02-29"));
    EXPECT_EQ(labelOf(Unit::day, *dayFromText("0000-01-01", today)), "0000-01-01");
}

TEST(LocalDay, isReadFromNothingElse)
{
    for (const char* text : {"",           "d",          "-1d",         "+1d",
                             "1w",         "30",         "9999999999d", "3659635d",
                             "yesterday",  "Today",      "2026-11-31",  "2026-02-29",
                             "2026-13-01", "2026-00-10", "2026-11-00",  "2026-1-15",
                             "26-11-15",   "2026/11/15", "2026-11-15 ", " 2026-11-15",
                             "2026-11-1x", "-026-11-15", "2026-+1-15",  "2026-11-15T00:00",
                             "12026-11-15"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(dayFromText(text, day("2026-11-15")), std::nullopt);
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

TEST(LocalCalendar, knowsWhereADayBeginsHoweverTheClocksChange)
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
            EXPECT_EQ(LocalCalendar::dayOf(calendar.startOf(asked)), asked);
            EXPECT_EQ(LocalCalendar::dayOf(calendar.startOf(asked + oneDay) - 0.5), asked);
        }
    }
}

TEST(LocalCalendar, sharesATimeOutAmongItsDays)
{
    const TimeZone here("Europe/Berlin");
    LocalCalendar calendar;
    std::string parts;
    calendar.forEachDay(local("2026-10-24 23:30"), 26.5 * 3600, [&](Day part, double seconds) {
        parts += labelOf(Unit::day, part) + " " + std::to_string(static_cast<int>(seconds)) + ", ";
    });
    EXPECT_EQ(parts, "2026-10-24 1800, 2026-10-25 90000, 2026-10-26 3600, ");
}

TEST(LocalCalendar, sharesNothingOutOfNoTime)
{
    LocalCalendar calendar;
    calendar.forEachDay(moment, 0, [](Day, double) { FAIL(); });
}

}  // namespace
}  // namespace quillmere::test
