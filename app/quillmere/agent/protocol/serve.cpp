#include "agent/protocol/serve.hpp"

#include "agent/protocol/line_reader.hpp"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <limits>
#include <system_error>

namespace quillmere::app::protocol {
namespace {

bool mayGoOn(int error) { return error == EINTR || error == EAGAIN; }

class Connection {
public:
    Connection(Server& server, Changes& changes, const Channels& channels)
        : server_(server),
          changes_(changes),
          channels_(channels),
          reader_(longestLine, {.line = [this](auto line) { server_.receive(line, now()); },
                                .tooLong = [this] { server_.refuseLongLine(); }})
    {
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Waits until there is something to do, and does it; false when that was the end.
    bool step();

private:
    static Moment now() { return std::chrono::steady_clock::now(); }
    bool isSending() const { return sent_ < output_.size(); }
    int millisecondsToWait() const;
    void receiveSome();
    /// False when nobody reads any more.
    bool sendSome();

    Server& server_;
    Changes& changes_;
    Channels channels_;
    LineReader reader_;
    std::string output_;
    std::size_t sent_ = 0;  ///< of the output
    bool hasEnded_ = false;
};

bool Connection::step()
{
    if (hasEnded_ && !isSending()) {
        return false;
    }
    enum { ending, input, output, changes };
    std::array<pollfd, 4> watched = {{
        {channels_.ending, POLLIN, 0},
        // A client that does not read is not heard, so that what waits for it does not grow.
        {hasEnded_ || isSending() ? -1 : channels_.in, POLLIN, 0},
        {channels_.out, static_cast<short>(isSending() ? POLLOUT : 0), 0},
        {changes_.descriptor(), POLLIN, 0},
    }};
    if (::poll(watched.data(), watched.size(), millisecondsToWait()) == -1 && !mayGoOn(errno)) {
        throw std::system_error(errno, std::generic_category(), "poll");
    }
    if (watched[ending].revents != 0 || (watched[output].revents & ~POLLOUT) != 0) {
        return false;
    }
    if (watched[output].revents != 0 && !sendSome()) {
        return false;
    }
    if (watched[changes].revents != 0) {
        changes_.take();
    }
    if (watched[changes].revents != 0 || server_.nextDeadline().value_or(Moment::max()) <= now()) {
        server_.askAgain(now());
    }
    if (watched[input].revents != 0) {
        receiveSome();
    }
    output_ += server_.takeOutput();
    return true;
}

int Connection::millisecondsToWait() const
{
    const std::optional<Moment> deadline = server_.nextDeadline();
    if (!deadline) {
        return -1;
    }
    // Rounded up: a moment too early there would be nothing to do but to wait again.
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

void Connection::receiveSome()
{
    std::array<char, 65536> bytes;
    const ssize_t count = ::read(channels_.in, bytes.data(), bytes.size());
    if (count > 0) {
        reader_.take({bytes.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || !mayGoOn(errno)) {
        reader_.finish();
        hasEnded_ = true;
    }
}

bool Connection::sendSome()
{
    // What is writable takes this much without making anybody wait (pipe(7)).
    const std::size_t most = std::min<std::size_t>(output_.size() - sent_, PIPE_BUF);
    const ssize_t count = ::write(channels_.out, output_.data() + sent_, most);
    if (count == -1) {
        return mayGoOn(errno);
    }
    sent_ += static_cast<std::size_t>(count);
    if (!isSending()) {
        std::string().swap(output_);
        sent_ = 0;
    }
    return true;
}

}  // namespace

bool isOpen(int descriptor) { return ::fcntl(descriptor, F_GETFD) != -1; }

void serve(Server& server, Changes& changes, const Channels& channels)
{
    Connection connection(server, changes, channels);
    while (connection.step()) {
    }
}

}  // namespace quillmere::app::protocol
