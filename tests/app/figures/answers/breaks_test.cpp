// Breaks and pauses, counted a second time over every minute between sessions.
#include "figures/answers/breaks.hpp"

#include "figures_testing.hpp"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::BreakFigures;
using figures::breaksOf;
using figures::PauseFigures;
using figures::pausesOf;
using figures::statistics;

/// Counts up to the start of the next session.
int minutesBetween(Instant end, Instant start)
{
    int minutes = 0;
    for (Instant time = end; time < start; time = time + 60) {
        ++minutes;
    }
    return minutes;
}

struct Expected {
    std::vector<int> taken;
    int planned = 0;
    int overlong = 0;
    int overnight = 0;
};

Expected expectedOf(const QuillmereState& state, const std::string& since, int dayBeginsAtHour)
{
    Expected expected;
    for (const Block& block : blocksIn(state)) {
        const int planned = static_cast<int>(block.breakDurationSeconds) / 60;
        const WorkSession* before = nullptr;
        for (const WorkSession& each : block.sessions) {
            const std::string date = dateOf(each.startedAt, dayBeginsAtHour);
            if (before && date >= since) {
                const bool isOfOneDay = dateOf(*before->endedAt, dayBeginsAtHour) == date;
                expected.overnight += isOfOneDay ? 0 : 1;
                if (isOfOneDay) {
                    expected.taken.push_back(minutesBetween(*before->endedAt, each.startedAt));
                    expected.planned += planned;
                    expected.overlong += expected.taken.back() > planned + planned ? 1 : 0;
                }
            }
            before = &each;
        }
    }
    std::sort(expected.taken.begin(), expected.taken.end());
    return expected;
}

TEST(Breaks, areTheTimesBetweenSessionsOfABlockWithinADay)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const figures::Habits habits{.dayBeginsAtHour = seed % 2 == 0 ? 4 : 0};
        const QuillmereState state = generatedHistory(seed, moment);
        const Range range{.since = day("2026-10-01"), .until = std::nullopt};
        const LookBack look = statistics(state, range, day("2026-11-15"), habits);
        const BreakFigures figures = breaksOf(look);
        const Expected expected = expectedOf(state, "2026-10-01", habits.dayBeginsAtHour);
        ASSERT_FALSE(expected.taken.empty());
        EXPECT_EQ(figures.breaks.size(), expected.taken.size());
        EXPECT_EQ(figures.plannedSeconds, expected.planned * 60);
        EXPECT_EQ(figures.takenSeconds,
                  60 * std::accumulate(expected.taken.begin(), expected.taken.end(), 0));
        EXPECT_EQ(figures.medianSeconds, expected.taken[expected.taken.size() / 2] * 60);
        EXPECT_EQ(figures.longestSeconds, expected.taken.back() * 60);
        EXPECT_EQ(figures.overlong, expected.overlong);
        EXPECT_EQ(figures.overnight, expected.overnight);
        EXPECT_GT(figures.overlong, 0);
        EXPECT_GT(figures.overnight, 0);
    }
}

TEST(Breaks, doNotCountWhereASessionBeganBeforeTheOneBeforeItEnded)
{
    const TimeZone here("UTC");
    const QuillmereState state = stateWith({session(moment, 1500), session(moment + 1000, 1500)});
    const LookBack look = statistics(state, {}, day("2026-11-15"));
    EXPECT_TRUE(breaksOf(look).breaks.empty());
    EXPECT_EQ(breaksOf(look).medianSeconds, 0);
}

TEST(Pauses, areThoseOfTheSessionsWhoseTimeIsKnown)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        const LookBack look = statistics(state, {}, day("2026-11-15"));
        const PauseFigures figures = pausesOf(look);
        std::string sessions;  // a letter each
        double sum = 0;
        double longestPause = 0;
        for (const Block& block : blocksIn(state)) {
            for (const WorkSession& each : block.sessions) {
                const double paused = each.accumulatedPausedSeconds;
                if (each.endedAt >= each.startedAt) {
                    sessions += paused > block.breakDurationSeconds ? 'L' : paused > 0 ? 'p' : '-';
                    sum += paused;
                    longestPause = std::max(longestPause, paused);
                }
            }
        }
        const auto overlong = std::count(sessions.begin(), sessions.end(), 'L');
        EXPECT_EQ(figures.sessions, std::ssize(sessions));
        EXPECT_EQ(figures.pausedSessions, overlong + std::count(sessions.begin(), sessions.end(), 'p'));
        EXPECT_EQ(figures.overlong, overlong);
        EXPECT_EQ(figures.pausedSeconds, sum);
        EXPECT_EQ(figures.longestSeconds, longestPause);
        EXPECT_GT(overlong, 0);
    }
}

}  // namespace
}  // namespace quillmere::test
