// The running countdown as every surface shows it.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <optional>

namespace quillmere::work {

/// Whole seconds left at `now`; absent without a countdown.
std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now);

/// The used share of the running timer, 0 to 1; absent without a timer. It stands still in a pause, unlike
/// the progress of the widget's summary, which follows from the two ends of the countdown.
std::optional<double> usedShare(const workspace::Situation& situation);

}  // namespace quillmere::work
