// When `quillmere bar --follow` looks and prints again.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::bar {

/// When the line of `now` is out of date: at the next whole second while a countdown runs, also in overtime;
/// otherwise at `nextReading`.
Instant nextBarLine(const WidgetSnapshot& summary, Instant now, Instant nextReading);

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
