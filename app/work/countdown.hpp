// The running countdown as every surface shows it.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <optional>

namespace quillmere::work {

/// Whole seconds left at `now`; absent without a countdown.
std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now);

/// The share of the running timer that is used up, 0 to 1; absent without one. It stands still in a pause,
/// which the progress of the widget's summary cannot: that is computed from the two ends of the countdown.
std::optional<double> usedShare(const workspace::Situation& situation);

}  // namespace quillmere::work
