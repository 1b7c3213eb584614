// When `quillmere bar --follow` looks and prints again.
#pragma once

#include "work/short_view.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::bar {

/// When the line of `now` is out of date, at the latest at `nextReading`: at the next whole second while a
/// countdown runs. At the next whole minute once it is over, when the words for its end may name another day,
/// and while a scheduled block waits, whose start must not be slept through with a machine that sleeps; also
/// at that start.
Instant nextBarLine(const work::ShortView& work, Instant now, Instant nextReading);

/// When to read the summary again although its file has not changed. Follows the widget's timeline.
Instant nextBarReading(const WidgetSnapshot& summary, Instant now);

/// When the summary was read, and when it is to be read again.
struct BarReadingTimes {
    Instant last;
    Instant next;
};

/// Whether to read again now: when it is time, and when the clock was set back since the last reading, so
/// that the next one is not put off by as much.
bool isBarReadingDue(const BarReadingTimes& times, Instant now);

/// When to try again after a failure. Not every repair, for example of permissions, can be noticed.
Instant nextBarReadingAfterFailure(Instant now);

}  // namespace quillmere::bar
