// The entries of a widget's timeline, and the time of the next one.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

#include <vector>

/// A timeline does not simulate the workflow: the phase is the same in all entries. A countdown runs at an
/// instant if it is not paused and ends later than that instant.
namespace quillmere::WidgetTimelinePlan {

struct Entry {
    Instant date;  ///< when the widget begins to show the summary
    WidgetSnapshot snapshot;

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Seconds until a widget without a running countdown needs a new timeline.
inline constexpr double idleRefreshInterval = 1800.0;

/// The entries in order of date: the summary from `now` on and, when a countdown runs, the same summary with
/// the countdown at zero from its end on.
std::vector<Entry> entries(const WidgetSnapshot& snapshot, Instant now);

/// When the widget needs a new timeline: one second after the end of a running countdown, otherwise after
/// `idleRefreshInterval`.
Instant refreshDate(const WidgetSnapshot& snapshot, Instant now);

}  // namespace quillmere::WidgetTimelinePlan
