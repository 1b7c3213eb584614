// States that the engine could not live with.
#pragma once

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>

namespace quillmere::workspace {

inline constexpr std::int64_t mostCycles = 1'000;

/// Throws Refusal (`unusableData`) when a duration or a count in the state lies outside what this
/// program accepts. Timers count whole seconds in 64 bits and stop the program beyond that, so nothing
/// may be derived from a state before it has been through here. Names the value by its key.
void requireUsable(const QuillmereState& state);

/// The same for a summary of the widget, from which nothing may be shown before.
void requireUsable(const WidgetSnapshot& summary);

}  // namespace quillmere::workspace
