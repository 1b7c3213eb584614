#include "base/system/line_writer.hpp"

#include "base/text/sanitize.hpp"

#include <poll.h>
#include <unistd.h>

#include <climits>
#include <ostream>
#include <string>

namespace quillmere::base {

void LineWriter::say(std::string_view text)
{
    // What poll(2) finds writable takes PIPE_BUF bytes without waiting (pipe(7)). Inert text is at most three
    // times as long, and the end of the line is one more.
    constexpr std::size_t longest = (PIPE_BUF - 1) / 3;
    const std::string line = sanitized(text.substr(0, longest)) + '\n';
    if (descriptor_ == -1) {
        stream_ << line << std::flush;
        return;
    }
    pollfd file{.fd = descriptor_, .events = POLLOUT, .revents = 0};
    if (::poll(&file, 1, 0) == 1 && (file.revents & POLLOUT) != 0) {
        [[maybe_unused]] const ssize_t count = ::write(descriptor_, line.data(), line.size());
    }
}

}  // namespace quillmere::base
