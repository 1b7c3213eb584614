#include "bar/bar_follower.hpp"

#include "bar/bar_schedule.hpp"
#include "base/refusal.hpp"
#include "base/system/directory_watch.hpp"
#include "base/system/held_signals.hpp"

#include <fcntl.h>
#include <poll.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cmath>
#include <system_error>
#include <utility>

namespace quillmere::bar {
namespace {

[[noreturn]] void failToWrite(int code)
{
    throw std::system_error(code, std::generic_category(), "write: standard output");
}

timespec durationFrom(double seconds)
{
    const double least = seconds > 0 ? seconds : 0;
    const double whole = std::floor(least);
    constexpr double nanoseconds = 1e9;
    return {.tv_sec = static_cast<time_t>(whole),
            .tv_nsec = static_cast<long>((least - whole) * nanoseconds)};
}

class BarFollower {
public:
    BarFollower(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output)
        : workspace_(workspace),
          clock_(clock),
          lines_(lines),
          output_(output),
          // Before the first look, so that no change falls between the two.
          watch_(workspace.widgetPlace()),
          begin_(workspace.now()),
          nextReading_(begin_),
          nextLine_(begin_)
    {
    }

    /// Line after line, each made when there is room for it: a slow reader gets what is true by then.
    void run()
    {
        while (awaitRoom()) {
            if (unwritten_.empty()) {
                refresh();
            }
            if (!unwritten_.empty()) {
                write();
            }
            if (unwritten_.empty()) {
                awaitNews();
            }
        }
    }

private:
    BarReading read() const
    {
        try {
            // The instant is that of the summary of somebody who has none, which is the same each time.
            return {.summary = workspace_.widgetSnapshot(begin_), .failure = {}};
        } catch (const base::Refusal& error) {
            return {.summary = std::nullopt, .failure = error.what()};
        }
    }

    /// Whether there is another reading than before.
    bool readIfDue(Instant now)
    {
        const bool changed = watch_.takeChanges();
        if (!changed && now < nextReading_) {
            return false;
        }
        const BarReading before = std::exchange(reading_, read());
        nextReading_ =
            reading_.summary ? nextBarReading(*reading_.summary, now) : nextBarReadingAfterFailure(now);
        return reading_ != before;
    }

    void refresh()
    {
        const Instant now = workspace_.now();
        const bool isNew = readIfDue(now);
        std::string text = lines_(reading_, now);
        if (isNew || text != written_) {
            unwritten_ = text;
            written_ = std::move(text);
        }
        nextLine_ = reading_.summary ? nextBarLine(*reading_.summary, now, nextReading_) : nextReading_;
    }

    /// Whether there is room before all is over.
    bool awaitRoom()
    {
        bool isThere = false;
        while (!isOver_ && !isThere) {
            isThere = sleep({.output = POLLOUT, .watch = 0, .limit = nullptr});
        }
        return !isOver_;
    }

    /// Until there may be another line.
    void awaitNews()
    {
        const timespec limit = durationFrom(nextLine_ - clock_());
        sleep({.output = 0, .watch = POLLIN, .limit = &limit});
    }

    /// What a sleep ends at, besides the end of it all.
    struct Wakers {
        short output;
        short watch;
        const timespec* limit;  ///< null: none
    };

    /// Whether it is the output that has what was waited for.
    bool sleep(const Wakers& wakers)
    {
        std::array<pollfd, 3> channels = {{
            {.fd = signals_.descriptor(), .events = POLLIN, .revents = 0},
            {.fd = output_, .events = wakers.output, .revents = 0},
            {.fd = watch_.descriptor(), .events = wakers.watch, .revents = 0},
        }};
        if (::ppoll(channels.data(), channels.size(), wakers.limit, nullptr) < 0) {
            return false;  // a signal that means nothing here
        }
        const bool isReaderGone = (channels[1].revents & (POLLERR | POLLHUP)) != 0;
        isOver_ = channels[0].revents != 0 || isReaderGone;
        return (channels[1].revents & wakers.output) != 0;
    }

    /// No more than there is room for when there is any (pipe(7)), so that this never waits.
    void write()
    {
        const std::size_t most = std::min<std::size_t>(unwritten_.size(), PIPE_BUF);
        const ssize_t count = ::write(output_, unwritten_.data(), most);
        if (count >= 0) {
            unwritten_.erase(0, static_cast<std::size_t>(count));
        } else if (errno == EPIPE) {
            isOver_ = true;
        } else if (errno != EINTR && errno != EAGAIN) {
            failToWrite(errno);
        }
    }

    const workspace::Workspace& workspace_;
    const Clock& clock_;
    const BarLines& lines_;
    const int output_;
    const base::HeldSignals signals_{SIGTERM, SIGINT};
    const base::BrokenPipesAreErrors brokenPipes_;
    base::DirectoryWatch watch_;
    const Instant begin_;
    Instant nextReading_;
    Instant nextLine_;
    BarReading reading_;
    std::string written_;    ///< what was last to be written
    std::string unwritten_;  ///< what of it is not yet
    bool isOver_ = false;
};

}  // namespace

void followBar(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output)
{
    // Otherwise what is opened here would get its number.
    if (::fcntl(output, F_GETFD) == -1) {
        failToWrite(errno);
    }
    BarFollower(workspace, clock, lines, output).run();
}

}  // namespace quillmere::bar
