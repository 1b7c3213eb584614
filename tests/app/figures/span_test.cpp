// Spans of days as a person types them.
#include "figures/span.hpp"

#include "figures_testing.hpp"

namespace quillmere::test {
namespace {

using figures::spanFromText;

struct Span {
    const char* text;
    const char* since;
    const char* until;
};

// Today is Sunday, 15 November 2026.
constexpr Span spans[] = {
    {"today", "2026-11-15", "2026-11-15"},      {"yesterday", "2026-11-14", "2026-11-14"},
    {"monday", "2026-11-09", "2026-11-09"},     {"sun", "2026-11-15", "2026-11-15"},
    {"Saturday", "2026-11-14", "2026-11-14"},   {"week", "2026-11-09", "2026-11-15"},
    {"Last Week", "2026-11-02", "2026-11-08"},  {"month", "2026-11-01", "2026-11-30"},
    {"last month", "2026-10-01", "2026-10-31"}, {"1d", "2026-11-15", "2026-11-15"},
    {"7d", "2026-11-09", "2026-11-15"},         {"30D", "2026-10-17", "2026-11-15"},
    {"2026-10", "2026-10-01", "2026-10-31"},    {"2024-02", "2024-02-01", "2024-02-29"},
    {"2026-10-05", "2026-10-05", "2026-10-05"},
};

TEST(SpanFromText, namesTheFirstAndTheLastDay)
{
    for (const Span& each : spans) {
        SCOPED_TRACE(each.text);
        const std::optional<Range> span = spanFromText(each.text, day("2026-11-15"));
        ASSERT_TRUE(span);
        EXPECT_EQ(span->since, day(each.since));
        EXPECT_EQ(span->until, day(each.until));
    }
}

TEST(SpanFromText, crossesTheTurnOfTheYear)
{
    const std::optional<Range> month = spanFromText("last month", day("2027-01-31"));
    ASSERT_TRUE(month);
    EXPECT_EQ(month->since, day("2026-12-01"));
    EXPECT_EQ(month->until, day("2026-12-31"));
}

TEST(SpanFromText, beginsWeeksOnTheDayThatIsTheFirst)
{
    const std::optional<Range> week = spanFromText("week", day("2026-11-14"), std::chrono::Sunday);
    ASSERT_TRUE(week);
    EXPECT_EQ(week->since, day("2026-11-08"));
    EXPECT_EQ(week->until, day("2026-11-14"));
    EXPECT_EQ(spanFromText("week", day("2026-11-15"), std::chrono::Sunday)->since, day("2026-11-15"));
}

TEST(NamedSpans, areAllRead)
{
    const std::vector<std::string> names = figures::namedSpans();
    EXPECT_EQ(names.size(), 15u);
    for (const std::string& name : names) {
        EXPECT_TRUE(spanFromText(name, day("2026-11-15"))) << name;
    }
}

TEST(SpanFromText, readsNothingElse)
{
    for (const char* text :
         {"", "d", "0d", "-1d", "+1d", "1w", "30", "9999999999d", "3659635d", "todays", " today", "last",
          "last day", "lastweek", "tomorrow", "2026", "2026-13", "2026-11-31", "2026-1-15"}) {
        EXPECT_EQ(spanFromText(text, day("2026-11-15")), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
