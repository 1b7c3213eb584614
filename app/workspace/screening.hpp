// Rejects files with numbers outside the limits of this program.
#pragma once

#include "base/limits.hpp"

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::workspace {

using base::mostCycles;

/// Throws Refusal (`unusableData`), naming the key, when a duration or a count is outside the limits. To be
/// called before anything is derived from a loaded state: timers stop the program when seconds do not fit
/// into 64 bits.
void requireUsable(const QuillmereState& state);

/// The same for a loaded summary of the widget.
void requireUsable(const WidgetSnapshot& summary);

}  // namespace quillmere::workspace
