#include "bar/bar_schedule.hpp"

#include <quillmere/widget/widget_timeline_plan.hpp>

#include <algorithm>
#include <cmath>

namespace quillmere::bar {

Instant nextBarLine(const WidgetSnapshot& summary, Instant now, Instant nextReading)
{
    const bool moves = summary.countdown && !summary.countdown->isPaused;
    const Instant nextSecond(std::floor(now.secondsSince1970()) + 1);
    return moves ? std::min(nextSecond, nextReading) : nextReading;
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
