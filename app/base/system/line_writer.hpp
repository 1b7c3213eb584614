// Lines for somebody who may not be reading.
#pragma once

#include <iosfwd>
#include <string_view>

namespace quillmere::base {

/// Writes lines, and never waits for their reader: a line for which there is no room, as behind Ctrl-S on a
/// terminal or in a full pipe, is dropped, and so is one that cannot be written at all.
class LineWriter {
public:
    /// `descriptor`: that of the stream, which is then passed by; -1: there is none.
    LineWriter(std::ostream& stream, int descriptor) : stream_(stream), descriptor_(descriptor) {}

    /// Writes the text as one inert line; of a long text the beginning.
    void say(std::string_view text);

private:
    std::ostream& stream_;
    int descriptor_;
};

}  // namespace quillmere::base
