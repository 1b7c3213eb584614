// Days, months and weekdays of the calendar as text.
#include "base/text/calendar_text.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

namespace chrono = std::chrono;

TEST(DayFromText, readsADayOfTheCalendar)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(base::dayFromText("2024-02-29"), chrono::local_days(2024y / chrono::February / 29));
    EXPECT_EQ(base::dayFromText("0000-01-01"), chrono::local_days(0y / chrono::January / 1));
    EXPECT_EQ(base::dayFromText("9999-12-31"), chrono::local_days(9999y / chrono::December / 31));
}

TEST(DayFromText, readsNothingElse)
{
    for (const char* text : {"",           "today",      "2026-11",     "2026-11-31",       "2026-02-29",
                             "2026-13-01", "2026-00-10", "2026-11-00",  "2026-1-15",        "26-11-15",
                             "2026/11/15", "2026-11/15", "2026-11-15 ", " 2026-11-15",      "2026-11-1x",
                             "-026-11-15", "2026-+1-15", "2026-11-+5",  "2026-11-15T00:00", "12026-11-15"}) {
        EXPECT_EQ(base::dayFromText(text), std::nullopt) << text;
    }
}

TEST(MonthFromText, readsAMonthOfTheCalendarAndNothingElse)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(base::monthFromText("2026-10"), 2026y / chrono::October);
    for (const char* text :
         {"", "2026", "2026-13", "2026-00", "2026-1", "26-10", "2026/10", "2026-10-", "-026-10"}) {
        EXPECT_EQ(base::monthFromText(text), std::nullopt) << text;
    }
}

TEST(WeekdayFromText, readsWhatWeekdayTextSaysAndTheWholeName)
{
    EXPECT_EQ(base::weekdayFromText("mon"), chrono::Monday);
    EXPECT_EQ(base::weekdayFromText("monday"), chrono::Monday);
    EXPECT_EQ(base::weekdayFromText("sunday"), chrono::Sunday);
    EXPECT_EQ(base::weekdayFromText("sat"), chrono::Saturday);
    for (const char* text : {"", "mo", "mond", "Mon", "mondays"}) {
        EXPECT_EQ(base::weekdayFromText(text), std::nullopt) << text;
    }
    EXPECT_EQ(base::weekdayText(chrono::Saturday), "Sat");
    EXPECT_EQ(base::monthText(chrono::December), "Dec");
}

}  // namespace
}  // namespace quillmere::test
