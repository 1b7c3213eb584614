// When a bar that stays has something else to show.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::bar {

/// When the line that is right at `now` is no longer: at the next whole second while a figure in it moves,
/// which it also does in overtime; otherwise not before `nextReading`.
Instant nextBarLine(const WidgetSnapshot& summary, Instant now, Instant nextReading);

/// When to read again a summary that was read at `now`, though no change of its file was noticed: as the
/// widget's timeline has it.
Instant nextBarReading(const WidgetSnapshot& summary, Instant now);

/// The same where there was none to read. Some repairs, such as of permissions, cannot be noticed.
Instant nextBarReadingAfterFailure(Instant now);

}  // namespace quillmere::bar
