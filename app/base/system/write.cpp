#include "base/system/write.hpp"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace quillmere::base {

WriteResult writeWithoutWaiting(int descriptor, std::string_view text)
{
    // Ready for poll(2) means room for PIPE_BUF bytes (pipe(7)), or an error that write(2) returns at once.
    pollfd file{.fd = descriptor, .events = POLLOUT, .revents = 0};
    if (::poll(&file, 1, 0) != 1) {
        return {};
    }
    const ssize_t count = ::write(descriptor, text.data(), text.substr(0, PIPE_BUF).size());
    if (count >= 0) {
        return {.count = static_cast<std::size_t>(count)};
    }
    return {.error = errno == EINTR || errno == EAGAIN ? 0 : errno};
}

}  // namespace quillmere::base
