// A line for a bar whenever there is something else to show.
#pragma once

#include "workspace/workspace.hpp"

#include <functional>
#include <optional>
#include <string>

namespace quillmere::bar {

/// What came of a look at the widget's summary: itself, or else why not.
struct BarReading {
    std::optional<WidgetSnapshot> summary;
    std::string failure;

    friend bool operator==(const BarReading&, const BarReading&) = default;
};

/// The lines for a reading, as they are at an instant, line ends included.
using BarLines = std::function<std::string(const BarReading& reading, Instant now)>;

/// Writes lines to a descriptor: at once, whenever the summary changes, and each second in which the lines
/// change by themselves. Sleeps in between. The file is watched, and is read again by itself only when the
/// widget's timeline says so. Returns on SIGTERM, on SIGINT and when nobody reads any more, also while it
/// sleeps or waits for a slow reader. A summary that cannot be read is a line, not an end. Throws
/// `std::system_error` when nothing can be watched or written.
void followBar(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output);

}  // namespace quillmere::bar
