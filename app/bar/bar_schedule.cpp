#include "bar/bar_schedule.hpp"

#include <quillmere/widget/widget_timeline_plan.hpp>

#include <algorithm>
#include <cmath>

namespace quillmere::bar {

namespace {

/// The next whole multiple of so many seconds.
Instant nextWhole(double seconds, Instant now)
{
    return Instant((std::floor(now.secondsSince1970() / seconds) + 1) * seconds);
}

}  // namespace

Instant nextBarLine(const work::ShortView& work, Instant now, Instant nextReading)
{
    constexpr double minute = 60;
    if (work.overSince) {
        return std::min(nextWhole(minute, now), nextReading);
    }
    if (work.timer && !work.timer->isPaused) {
        return std::min(nextWhole(1, now), nextReading);
    }
    return work.schedule ? std::min({work.schedule->start, nextWhole(minute, now), nextReading})
                         : nextReading;
}

Instant nextBarReading(const WidgetSnapshot& summary, Instant now)
{
    return WidgetTimelinePlan::refreshDate(summary, now);
}

bool isBarReadingDue(const BarReadingTimes& times, Instant now)
{
    return now >= times.next || now < times.last;
}

Instant nextBarReadingAfterFailure(Instant now)
{
    constexpr double seconds = 60;
    return now + seconds;
}

}  // namespace quillmere::bar
