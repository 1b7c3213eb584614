#include "base/system/line_writer.hpp"

#include "base/system/write.hpp"
#include "base/text/sanitize.hpp"

#include <climits>
#include <ostream>
#include <string>

namespace quillmere::base {

void LineWriter::say(std::string_view text)
{
    // The whole line in one write. Sanitized text is at most three times as long; one byte ends the line.
    constexpr std::size_t longest = (PIPE_BUF - 1) / 3;
    const std::string line = sanitized(text.substr(0, longest)) + '\n';
    if (descriptor_ == -1) {
        stream_ << line << std::flush;
    } else {
        writeWithoutWaiting(descriptor_, line);
    }
}

}  // namespace quillmere::base
