// What a widget shows when, and when it asks again.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

#include <vector>

/// Does not simulate the workflow: the phase never moves on inside a timeline. A countdown runs at an
/// instant when it is not paused and ends strictly later.
namespace quillmere::WidgetTimelinePlan {

struct Entry {
    Instant date;             ///< shown from here on
    WidgetSnapshot snapshot;  ///< what is shown

    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Seconds until a widget without a running countdown asks again.
inline constexpr double idleRefreshInterval = 1800.0;

/// The summary as it is, from `now`; and, when a countdown runs, the same with the countdown at zero
/// from its end on. Ascending.
std::vector<Entry> entries(const WidgetSnapshot& snapshot, Instant now);

/// When to ask for a new timeline: a second after a running countdown's end, otherwise after
/// `idleRefreshInterval`.
Instant refreshDate(const WidgetSnapshot& snapshot, Instant now);

}  // namespace quillmere::WidgetTimelinePlan
