#include "agent/protocol/serve.hpp"

#include "agent/protocol/line_reader.hpp"
#include "base/system/wait.hpp"
#include "base/system/write.hpp"

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <string>
#include <utility>

namespace quillmere::agent::protocol {
namespace {

/// While a client leaves so many bytes unread, no more of its input is handled, so that memory is bounded.
constexpr std::size_t mostUnsent = 1024 * 1024;
constexpr std::size_t longestPiece = 65536;

class Connection {
public:
    Connection(Server& server, Changes& changes, const Channels& channels)
        : server_(server), changes_(changes), channels_(channels)
    {
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Waits for something to do and does it; one line at most, so that a request to end is seen soon. False
    /// at the end.
    bool step();

private:
    static Moment now() { return std::chrono::steady_clock::now(); }
    bool isSending() const { return sent_ < output_.size(); }
    bool isHearing() const { return output_.size() - sent_ < mostUnsent; }
    /// Absent: until something happens.
    std::optional<Moment::duration> timeToWait() const;
    void receiveSome();
    void handleLine();
    /// False when the reader is gone.
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
    std::array<base::PollSource, 4> sources = {{
        {channels_.ending},
        {isReading ? channels_.in : -1},
        {channels_.out, static_cast<short>(isSending() ? POLLOUT : 0)},
        {changes_.descriptor()},
    }};
    base::waitFor(sources, timeToWait());
    if (sources[ending].isReady() || sources[output].hasFailed()) {
        return false;
    }
    if (sources[output].isReady() && !sendSome()) {
        return false;
    }
    if (sources[changes].isReady()) {
        changes_.take();
        server_.expectResults();
    }
    server_.askAgain(now());
    if (sources[input].isReady()) {
        receiveSome();
    } else if (isHearing()) {
        handleLine();
    }
    output_ += server_.takeOutput();
    return true;
}

std::optional<Moment::duration> Connection::timeToWait() const
{
    if (isHearing() && !reader_.isAtEnd()) {
        return Moment::duration::zero();
    }
    const std::optional<Moment> next = server_.nextTime();
    const Moment present = now();
    // A moment in the past may be as far back as Moment::min().
    return next ? std::optional(std::max(*next, present) - present) : std::nullopt;
}

void Connection::receiveSome()
{
    std::string bytes(longestPiece, '\0');
    const ssize_t count = ::read(channels_.in, bytes.data(), bytes.size());
    if (count > 0) {
        bytes.resize(static_cast<std::size_t>(count));
        reader_.take(std::move(bytes));
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
        // The rest without a line end is a line too.
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
            // After a message of very many small values, free(3) alone would keep their memory.
            ::malloc_trim(0);
        }
    }
}

bool Connection::sendSome()
{
    const base::WriteResult written =
        base::writeWithoutWaiting(channels_.out, std::string_view(output_).substr(sent_));
    if (written.error != 0) {
        return false;
    }
    sent_ += written.count;
    // Only when half is sent, so that long output is not moved again and again; by copy and swap, so that the
    // memory shrinks.
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
