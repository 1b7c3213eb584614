// Days as text.
#include "lookback/day_text.hpp"

#include "figures_testing.hpp"

namespace quillmere::test {
namespace {

using lookback::labelOf;
using lookback::shortLabelOf;

struct Labels {
    const char* day;
    const char* week;
    const char* month;
};

// Weeks at the turn of years (ISO 8601).
constexpr Labels labels[] = {
    {"2026-11-15", "2026-W46", "2026-11"}, {"2026-11-16", "2026-W47", "2026-11"},
    {"2026-12-31", "2026-W53", "2026-12"}, {"2027-01-01", "2026-W53", "2027-01"},
    {"2027-01-03", "2026-W53", "2027-01"}, {"2027-01-04", "2027-W01", "2027-01"},
    {"2024-12-30", "2025-W01", "2024-12"}, {"2024-02-29", "2024-W09", "2024-02"},
    {"2021-01-03", "2020-W53", "2021-01"}, {"2008-12-29", "2009-W01", "2008-12"},
    {"0001-01-01", "0001-W01", "0001-01"}, {"9999-12-31", "9999-W52", "9999-12"},
};

TEST(LabelOf, namesTheDayItsWeekAndItsMonth)
{
    for (const Labels& each : labels) {
        SCOPED_TRACE(each.day);
        const Day read = day(each.day);
        EXPECT_EQ(labelOf(Unit::day, read), each.day);
        EXPECT_EQ(labelOf(Unit::week, figures::firstOf(Unit::week, read)), each.week);
        EXPECT_EQ(labelOf(Unit::month, read), each.month);
    }
}

TEST(LabelOf, namesAWeekByTheOneOfTheStandardWithMostOfItsDays)
{
    EXPECT_EQ(labelOf(Unit::week, day("2026-11-15")), "2026-W47");  // a Sunday
    EXPECT_EQ(labelOf(Unit::week, day("2026-11-14")), "2026-W47");  // a Saturday
    EXPECT_EQ(labelOf(Unit::week, day("2027-01-03")), "2027-W01");
}

TEST(ShortLabelOf, leavesOutTheYear)
{
    EXPECT_EQ(shortLabelOf(Unit::day, day("2026-03-05")), "5 Mar");
    EXPECT_EQ(shortLabelOf(Unit::week, day("2026-03-02")), "W10");
    EXPECT_EQ(shortLabelOf(Unit::month, day("2026-03-05")), "Mar");
}

TEST(WeekdayText, isTheEnglishAbbreviation)
{
    EXPECT_EQ(lookback::weekdayText(day("2026-11-15")), "Sun");
    EXPECT_EQ(lookback::weekdayText(day("2026-11-16")), "Mon");
}

}  // namespace
}  // namespace quillmere::test
