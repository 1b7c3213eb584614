// How much a person focused, counted a second time minute by minute.
#include "figures/answers/focus_spans.hpp"

#include "figures_testing.hpp"

#include <map>
#include <string>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::FocusSpan;
using figures::FocusSpans;
using figures::focusSpansOf;
using figures::Habits;
using figures::statistics;

/// The seconds of focus by date.
std::map<std::string, double> secondsByDate(const QuillmereState& state, int dayBeginsAtHour)
{
    std::map<std::string, double> seconds;
    forEachMinute(state, [&](const std::tm& time) { seconds[dateOf(time, dayBeginsAtHour)] += 60; });
    return seconds;
}

double sumOf(const std::map<std::string, double>& seconds, const std::string& first, const std::string& last)
{
    double sum = 0;
    for (const auto& [date, part] : seconds) {
        sum += date >= first && date <= last ? part : 0;
    }
    return sum;
}

struct ExpectedSpan {
    const char* first;
    const char* last;
    const char* before;
    const char* beforeByNow;  ///< the last day of it
    const char* beforeEnd;
};

void expectSpan(const FocusSpan& span, const ExpectedSpan& expected,
                const std::map<std::string, double>& seconds)
{
    SCOPED_TRACE(expected.first);
    EXPECT_EQ(span.first, day(expected.first));
    EXPECT_EQ(span.last, day(expected.last));
    EXPECT_EQ(span.focusSeconds, sumOf(seconds, expected.first, expected.last));
    EXPECT_EQ(span.beforeSeconds, sumOf(seconds, expected.before, expected.beforeEnd));
    EXPECT_EQ(span.beforeByNowSeconds, sumOf(seconds, expected.before, expected.beforeByNow));
}

TEST(FocusSpans, areThoseOfTheCalendarAndOfTheSpansBeforeThem)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const Habits habits{.dayBeginsAtHour = seed % 2 == 0 ? 4 : 0};
        const QuillmereState state = generatedHistory(seed, local("2026-11-18 21:00"));
        const FocusSpans found = focusSpansOf(statistics(state, {}, day("2026-11-18"), habits));
        const auto seconds = secondsByDate(state, habits.dayBeginsAtHour);
        expectSpan(found.today, {"2026-11-18", "2026-11-18", "2026-11-17", "2026-11-17", "2026-11-17"},
                   seconds);
        expectSpan(found.thisWeek, {"2026-11-16", "2026-11-22", "2026-11-09", "2026-11-11", "2026-11-15"},
                   seconds);
        expectSpan(found.lastWeek, {"2026-11-09", "2026-11-15", "2026-11-02", "2026-11-08", "2026-11-08"},
                   seconds);
        expectSpan(found.thisMonth, {"2026-11-01", "2026-11-30", "2026-10-01", "2026-10-18", "2026-10-31"},
                   seconds);
        EXPECT_GT(found.thisMonth.beforeSeconds, found.thisMonth.beforeByNowSeconds);
        EXPECT_GT(found.lastWeek.focusSeconds, 0);
    }
}

TEST(FocusSpans, doNotDependOnTheRangeOfTheLookBack)
{
    const TimeZone here("UTC");
    const QuillmereState state = generatedHistory(1, moment);
    const Range range{.since = day("2026-10-01"), .until = day("2026-10-02")};
    EXPECT_EQ(focusSpansOf(statistics(state, range, day("2026-11-15"))).thisMonth.focusSeconds,
              focusSpansOf(statistics(state, {}, day("2026-11-15"))).thisMonth.focusSeconds);
}

TEST(FocusSpans, compareAMonthWithNoMoreDaysThanTheOneBeforeHas)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-02-28 10:00"), 60), session(local("2026-03-01 10:00"), 3600)});
    const FocusSpans found = focusSpansOf(statistics(state, {}, day("2026-03-31")));
    EXPECT_EQ(found.thisMonth.beforeByNowSeconds, 60);
}

TEST(FocusSpans, beginOnTheFirstDayOfThePersonsWeek)
{
    const Habits habits{.weekBegins = std::chrono::Sunday};
    const FocusSpans found =
        focusSpansOf(statistics(QuillmereState::initial(moment), {}, day("2026-11-21"), habits));
    EXPECT_EQ(found.thisWeek.first, day("2026-11-15"));
    EXPECT_EQ(found.lastWeek.last, day("2026-11-14"));
}

TEST(FocusSpans, haveTheGoalOfTheirDaysButThoseOff)
{
    Habits habits{.dailyGoalSeconds = 3600, .daysOff = {std::chrono::Saturday, std::chrono::Sunday}};
    const QuillmereState nothing = QuillmereState::initial(moment);
    const FocusSpans found = focusSpansOf(statistics(nothing, {}, day("2026-11-15"), habits));
    EXPECT_EQ(found.today.goalSeconds, 0);  // a Sunday
    EXPECT_EQ(found.thisWeek.goalSeconds, 5 * 3600);
    EXPECT_EQ(found.thisMonth.goalSeconds, 21 * 3600);
    habits.dailyGoalSeconds.reset();
    EXPECT_FALSE(focusSpansOf(statistics(nothing, {}, day("2026-11-15"), habits)).thisWeek.goalSeconds);
}

}  // namespace
}  // namespace quillmere::test
