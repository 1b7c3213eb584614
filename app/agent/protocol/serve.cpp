#include "agent/protocol/serve.hpp"

#include "agent/protocol/line_reader.hpp"

#include <fcntl.h>
#include <malloc.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

namespace quillmere::agent::protocol {
namespace {

/// While a client leaves this many bytes unread it is not heard, so that what waits for it does not grow.
constexpr std::size_t mostUnsent = 1024 * 1024;
constexpr std::size_t longestPiece = 65536;

bool mayGoOn(int error) { return error == EINTR || error == EAGAIN; }

class Connection {
public:
    Connection(Server& server, Changes& changes, const Channels& channels)
        : server_(server), changes_(changes), channels_(channels)
    {
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Waits until there is something to do, and does it, one line at most, so that whoever asks for the end
    /// need not wait for more; false when that was the end.
    bool step();

private:
    static Moment now() { return std::chrono::steady_clock::now(); }
    bool isSending() const { return sent_ < output_.size(); }
    bool isHearing() const { return output_.size() - sent_ < mostUnsent; }
    int millisecondsToWait() const;
    void receiveSome();
    void handleLine();
    /// False when nobody reads any more.
    bool sendSome();

    Server& server_;
    Changes& changes_;
    Channels channels_;
    LineReader reader_{longestLine};
    std::string output_;
    std::size_t sent_ = 0;  ///< of the output
    bool hasEnded_ = false;
};

bool Connection::step()
{
    if (hasEnded_ && reader_.isAtEnd() && !isSending() && !server_.isActing()) {
        return false;
    }
    const bool isReading = isHearing() && reader_.isAtEnd() && !hasEnded_;
    enum { ending, input, output, changes };
    std::array<pollfd, 4> watched = {{
        {channels_.ending, POLLIN, 0},
        {isReading ? channels_.in : -1, POLLIN, 0},
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
        server_.expectResults();
    }
    server_.askAgain(now());
    if (watched[input].revents != 0) {
        receiveSome();
    } else if (isHearing()) {
        handleLine();
    }
    output_ += server_.takeOutput();
    return true;
}

int Connection::millisecondsToWait() const
{
    if (isHearing() && !reader_.isAtEnd()) {
        return 0;
    }
    const std::optional<Moment> next = server_.nextTime();
    if (!next) {
        return -1;
    }
    // Rounded up: a moment too early there would be nothing to do but to wait again.
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

void Connection::receiveSome()
{
    std::string bytes(longestPiece, '\0');
    const ssize_t count = ::read(channels_.in, bytes.data(), bytes.size());
    if (count > 0) {
        bytes.resize(static_cast<std::size_t>(count));
        reader_.take(std::move(bytes));
    } else if (count == 0 || !mayGoOn(errno)) {
        // What stands without a line end is a line too.
        reader_.take("\n");
        hasEnded_ = true;
    }
}

void Connection::handleLine()
{
    const std::optional<LineReader::Line> line = reader_.next();
    if (line && line->isTooLong) {
        server_.refuseLongLine();
    } else if (line) {
        server_.receive(line->text, now());
        if (line->text.size() > longestPiece) {
            // A message of very many small values would otherwise leave their memory with this process.
            ::malloc_trim(0);
        }
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
    // By halves, so that long output is not moved again and again; into a new place, so that the old is free.
    if (sent_ >= output_.size() - sent_) {
        std::string(output_, sent_).swap(output_);
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

}  // namespace quillmere::agent::protocol
