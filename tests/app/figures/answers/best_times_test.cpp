// When a person focuses best, counted a second time minute by minute.
#include "figures/answers/best_times.hpp"

#include "figures_testing.hpp"

#include <chrono>
#include <map>
#include <numeric>
#include <string>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::BestTimes;
using figures::bestTimesOf;
using figures::Habits;
using figures::statistics;
using figures::TimeSlot;

unsigned weekdayOf(const std::string& date) { return std::chrono::weekday(day(date)).c_encoding(); }

struct Count {
    double seconds = 0;
    std::string completions;  ///< a letter for each session
};

/// "ynn" in any order, as counts.
figures::Completions countsOf(const std::string& letters)
{
    return {std::count(letters.begin(), letters.end(), 'y'), std::count(letters.begin(), letters.end(), 'h'),
            std::count(letters.begin(), letters.end(), 'n')};
}

struct Counts {
    std::map<std::size_t, Count> hours;
    std::map<std::size_t, Count> weekdays;
};

Counts countsOf(const QuillmereState& state, const std::string& since, int dayBeginsAtHour)
{
    Counts counts;
    forEachMinute(state, [&](const std::tm& time) {
        if (const std::string date = dateOf(time, dayBeginsAtHour); date >= since) {
            counts.hours[static_cast<std::size_t>(time.tm_hour)].seconds += 60;
            counts.weekdays[weekdayOf(date)].seconds += 60;
        }
    });
    for (const Block& block : blocksIn(state)) {
        for (const WorkSession& each : block.sessions) {
            const std::string date = dateOf(each.startedAt, dayBeginsAtHour);
            if (date >= since) {
                const char letter = each.review ? "yhn"[static_cast<int>(each.review->completion)] : '-';
                counts.hours[static_cast<std::size_t>(std::stoi(clockOf(each.startedAt)))].completions +=
                    letter;
                counts.weekdays[weekdayOf(date)].completions += letter;
            }
        }
    }
    return counts;
}

void expectSlots(std::span<const TimeSlot> slots, std::map<std::size_t, Count>& counts)
{
    for (std::size_t index = 0; index < slots.size(); ++index) {
        SCOPED_TRACE(index);
        EXPECT_NEAR(slots[index].focusSeconds, counts[index].seconds, 0.001);
        EXPECT_EQ(slots[index].sessions, std::ssize(counts[index].completions));
        EXPECT_EQ(slots[index].completions, countsOf(counts[index].completions));
    }
}

TEST(BestTimes, areThoseOfTheHoursAndDaysInWhichFocusWasSpent)
{
    // Both change their clocks within the ten weeks, one of them by half an hour.
    for (const char* const zone : {"Europe/Berlin", "Australia/Lord_Howe"}) {
        const TimeZone here(zone);
        for (const unsigned seed : seeds) {
            SCOPED_TRACE(zone + std::string(" ") + std::to_string(seed));
            const Habits habits{.dayBeginsAtHour = seed % 2 == 0 ? 4 : 0};
            const QuillmereState state = generatedHistory(seed, moment);
            const Range range{.since = day("2026-10-01"), .until = std::nullopt};
            const BestTimes times = bestTimesOf(statistics(state, range, day("2026-11-15"), habits));
            Counts counts = countsOf(state, "2026-10-01", habits.dayBeginsAtHour);
            expectSlots(times.hours, counts.hours);
            expectSlots(times.weekdays, counts.weekdays);
        }
    }
}

TEST(BestTimes, countTheHoursInTheRangeOfASessionThatBeganBeforeIt)
{
    const TimeZone here("UTC");
    const QuillmereState state = stateWith({session(local("2026-11-14 23:30"), 3600)});
    const Range range{.since = day("2026-11-15"), .until = std::nullopt};
    const BestTimes times = bestTimesOf(statistics(state, range, day("2026-11-15")));
    EXPECT_EQ(times.hours[0].focusSeconds, 1800);
    EXPECT_EQ(times.hours[23].focusSeconds, 0);
    EXPECT_EQ(times.hours[0].sessions, 0);
}

TEST(BestTimes, divideMonthsOfFocusEvenly)
{
    const TimeZone here("Europe/Berlin");
    const QuillmereState state = stateWith({session(local("2025-11-01 00:00"), 365 * 86'400.0)});
    const BestTimes times = bestTimesOf(statistics(state, {}, day("2026-11-15")));
    EXPECT_EQ(times.hours[12].focusSeconds, 365 * 3600);
    // The clocks skip this hour on one day, and repeat it on another.
    EXPECT_EQ(times.hours[2].focusSeconds, 365 * 3600);
}

TEST(BestTimes, divideADayOnWhichTheClocksAreSetBackByItsHours)
{
    const TimeZone here("Europe/Berlin");
    const auto hoursOf = [](const char* start) {
        return bestTimesOf(statistics(stateWith({session(local(start), 86'400)}), {}, day("2026-11-15")))
            .hours;
    };
    EXPECT_EQ(hoursOf("2026-10-25 00:00")[2].focusSeconds, 2 * 3600);
    EXPECT_EQ(hoursOf("2026-10-25 00:00")[23].focusSeconds, 0);
    EXPECT_EQ(hoursOf("2026-10-25 01:00")[2].focusSeconds, 2 * 3600);
    EXPECT_EQ(hoursOf("2026-10-25 01:00")[0].focusSeconds, 0);
}

TEST(BestOf, isTheSlotThatReachedMostOfThoseWithThreeReviewedSessions)
{
    const std::array<TimeSlot, 5> slots = {
        TimeSlot{.completions = {2, 0, 0}}, TimeSlot{.completions = {2, 0, 1}},
        TimeSlot{.completions = {1, 2, 0}}, TimeSlot{.completions = {2, 4, 0}},
        TimeSlot{.completions = {0, 0, 9}}};
    EXPECT_EQ(figures::bestOf(slots), 3u);
    EXPECT_EQ(figures::bestOf(std::span(slots).first(1)), std::nullopt);
    EXPECT_EQ(figures::bestOf(std::span(slots).last(1)), 0u);
    EXPECT_EQ(figures::bestOf({}), std::nullopt);
}

TEST(BestOf, isNoSlotWithLessThanATwentiethOfAllSessions)
{
    std::array<TimeSlot, 3> slots = {TimeSlot{.completions = {5, 0, 0}}, TimeSlot{.completions = {60, 20, 0}},
                                     TimeSlot{.completions = {5, 5, 5}}};
    EXPECT_EQ(figures::bestOf(slots), 0u);
    slots[2].completions[0] = 6;
    EXPECT_EQ(figures::bestOf(slots), 1u);
}

}  // namespace
}  // namespace quillmere::test
