// When `quillmere bar --follow` wakes up.
#include "bar/bar_schedule.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using bar::nextBarLine;
using bar::nextBarReading;

struct Waking {
    const char* what;
    std::optional<WidgetCountdown> countdown;
    double now;          ///< of a summary that is read now, seconds after `moment`
    double nextLine;     ///< likewise
    double nextReading;  ///< likewise
};

WidgetCountdown countdownOf(double seconds, bool isPaused)
{
    return {.endsAt = moment + seconds,
            .startedAt = moment - 100,
            .isPaused = isPaused,
            .frozenRemainingSeconds = static_cast<std::int64_t>(seconds)};
}

const Waking wakings[] = {
    {"nothing runs", std::nullopt, 0, 1800, 1800},
    {"nothing runs, between two seconds", std::nullopt, 0.25, 1800.25, 1800.25},
    {"a countdown", countdownOf(900, false), 0, 1, 901},
    {"a countdown, between two seconds", countdownOf(900, false), 0.75, 1, 901},
    {"a countdown, at the last moment", countdownOf(900, false), 899.999, 900, 901},
    {"a countdown at zero", countdownOf(900, false), 900, 960, 2700},
    {"overtime", countdownOf(900, false), 1000, 1020, 2800},
    {"a pause", countdownOf(900, true), 10, 1810, 1810},
    {"a pause in overtime", countdownOf(-5, true), 10, 60, 1810},
};

TEST(BarSchedule, followsTheSecondsOfACountdownTheMinutesOfOvertimeAndElseTheWidgetsTimeline)
{
    for (const Waking& waking : wakings) {
        SCOPED_TRACE(waking.what);
        WidgetSnapshot summary = WidgetSnapshot::empty(moment);
        summary.countdown = waking.countdown;
        const Instant now = moment + waking.now;
        const Instant reading = nextBarReading(summary, now);
        EXPECT_EQ(reading - moment, waking.nextReading);
        EXPECT_EQ(nextBarLine(work::ShortView::of(summary, now), now, reading) - moment, waking.nextLine);
    }
}

TEST(BarSchedule, readsAgainInTheMiddleOfOvertime)
{
    // The reading that is due a second after the end is not delayed by the lines in between.
    WidgetSnapshot summary = WidgetSnapshot::empty(moment);
    summary.countdown = countdownOf(10, false);
    const Instant reading = nextBarReading(summary, moment);
    EXPECT_EQ(reading - moment, 11);
    const Instant now = moment + 10.5;
    EXPECT_EQ(nextBarLine(work::ShortView::of(summary, now), now, reading) - moment, 11);
}

TEST(BarSchedule, looksEachMinuteUntilAScheduledBlockBeginsAndThen)
{
    const QuillmereState state = stateWithScheduledBlock();
    const auto nextLineAt = [&](double seconds) {
        const Instant now = moment + seconds;
        return nextBarLine(work::ShortView::of({state, {}, now}), now, now + 1'800) - moment;
    };
    EXPECT_EQ(nextLineAt(0.5), 60);
    EXPECT_EQ(nextLineAt(3'570), 3'600);
}

TEST(BarSchedule, readsAgainWhenTheClockWasSetBack)
{
    const bar::BarReadingTimes times{.last = moment, .next = moment + 1800};
    EXPECT_FALSE(bar::isBarReadingDue(times, moment));
    EXPECT_FALSE(bar::isBarReadingDue(times, moment + 1799.75));
    EXPECT_TRUE(bar::isBarReadingDue(times, moment + 1800));
    EXPECT_TRUE(bar::isBarReadingDue(times, moment - 1));
    EXPECT_TRUE(bar::isBarReadingDue(times, moment - 1e9));
}

TEST(BarSchedule, triesAgainSoonAfterAFailure)
{
    EXPECT_EQ(bar::nextBarReadingAfterFailure(moment) - moment, 60);
}

}  // namespace
}  // namespace quillmere::test
