// The loop of `quillmere bar --follow`.
#pragma once

#include "base/system/line_writer.hpp"
#include "work/summarized_work.hpp"
#include "workspace/workspace.hpp"

#include <functional>
#include <optional>
#include <string>

namespace quillmere::bar {

/// The work as the summaries tell it, or why the widget's cannot be read.
struct BarReading {
    std::optional<work::SummarizedWork> work;
    std::string failure;

    friend bool operator==(const BarReading&, const BarReading&) = default;
};

/// Makes the lines for a reading at an instant, with line ends.
using BarLines = std::function<std::string(const BarReading& reading, Instant now)>;

/// Reads both summaries. Without a widget's summary, the empty one as of `now`. Throws as
/// Workspace::widgetSnapshot does.
work::SummarizedWork readSummaries(const workspace::Workspace& workspace, Instant now);

/// Writes lines to a descriptor: at once, whenever the widget's summary changes, and each second while a
/// countdown runs. Sleeps in between. Reads the files only when the widget's summary, which is written last,
/// has changed or the widget's timeline says so. Returns on SIGTERM, on SIGINT and when the reader is gone,
/// also while it sleeps or waits for a slow reader. A summary that cannot be read becomes a line, and
/// following goes on. Throws `std::system_error` when the directory cannot be watched or the output cannot be
/// written.
///
/// Where the system offers no more watches (DirectoryWatch::trouble), says so once in `messages`, and looks
/// for changes every second.
void followBar(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output,
               base::LineWriter& messages);

}  // namespace quillmere::bar
