// The running countdown as every surface shows it.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <optional>

namespace quillmere::work {

/// Whole seconds left at `now`; absent without a countdown. The same as the engine's timer counts from the
/// state, however the clock was set since the summary was made: nothing is counted before the start.
std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now);

/// The used share of the running timer, 0 to 1; absent without a timer. It stands still in a pause, unlike
/// the progress of the widget's summary, which follows from the two ends of the countdown.
std::optional<double> usedShare(const workspace::Situation& situation);

/// The same for a widget's summary; in a pause its progress, since the summary does not say when the pause
/// began.
std::optional<double> usedShare(const WidgetSnapshot& snapshot, Instant now);

}  // namespace quillmere::work
