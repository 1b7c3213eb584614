// Messages for a reader who may not be reading.
#pragma once

#include <iosfwd>
#include <string_view>

namespace quillmere::base {

/// Writes lines and never waits. A line is dropped when there is no room for it (a terminal stopped by
/// Ctrl-S, a full pipe) and when it cannot be written at all.
class LineWriter {
public:
    /// Writes to the descriptor, or to the stream when the descriptor is -1.
    LineWriter(std::ostream& stream, int descriptor) : stream_(stream), descriptor_(descriptor) {}

    /// Writes the text as one sanitized line. A long text is cut off at about PIPE_BUF / 3 bytes.
    void say(std::string_view text);

private:
    std::ostream& stream_;
    int descriptor_;
};

}  // namespace quillmere::base
