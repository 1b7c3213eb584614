#include "bar/bar_follower.hpp"

#include "bar/bar_schedule.hpp"
#include "base/refusal.hpp"
#include "base/system/directory_watch.hpp"
#include "base/system/held_signals.hpp"
#include "base/system/wait.hpp"
#include "base/system/write.hpp"

#include <quillmere/widget/widget_timeline_plan.hpp>

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace quillmere::bar {
namespace {

/// Where changes cannot be watched.
constexpr std::chrono::nanoseconds pauseBetweenLooks = std::chrono::seconds(1);

[[noreturn]] void failToWrite(int code)
{
    throw std::system_error(code, std::generic_category(), "write: standard output");
}

/// At most as long as between two readings; the loop then looks at its clock and waits again. More seconds
/// are left when the clock was set back just now.
std::chrono::nanoseconds timeToWait(double seconds)
{
    constexpr double longest = WidgetTimelinePlan::idleRefreshInterval;
    const std::chrono::duration<double> time(seconds > 0 ? std::min(seconds, longest) : 0);
    return std::chrono::ceil<std::chrono::nanoseconds>(time);
}

class BarFollower {
public:
    BarFollower(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output,
                base::LineWriter& messages)
        : workspace_(workspace),
          clock_(clock),
          lines_(lines),
          output_(output),
          messages_(messages),
          // Before the first reading, so that no change is missed between the two.
          watch_(workspace.widgetPlace()),
          begin_(workspace.now()),
          readings_{.last = begin_, .next = begin_},
          nextLine_(begin_)
    {
    }

    /// Makes each line only when there is room for it, so that a slow reader gets no outdated lines.
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
            // Without a file, the summary is empty as of this instant. It is always the same one, so that
            // two such readings are equal.
            return {.work = readSummaries(workspace_, begin_), .failure = {}};
        } catch (const base::Refusal& error) {
            return {.work = std::nullopt, .failure = error.what()};
        }
    }

    /// Reads when it is time; whether the reading has changed.
    bool readIfDue(Instant now)
    {
        const bool changed = watch_.takeChanges();
        if (!changed && !isBarReadingDue(readings_, now)) {
            return false;
        }
        const BarReading before = std::exchange(reading_, read());
        readings_ = {.last = now,
                     .next = reading_.work ? nextBarReading(reading_.work->widget, now)
                                           : nextBarReadingAfterFailure(now)};
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
        nextLine_ = reading_.work ? nextBarLine(work::ShortView::of(*reading_.work, now), now, readings_.next)
                                  : readings_.next;
    }

    /// Waits until the output has room; false when following is over first.
    bool awaitRoom()
    {
        bool hasRoom = false;
        while (!isOver_ && !hasRoom) {
            hasRoom = wait({.output = POLLOUT, .watch = 0, .limit = std::nullopt});
        }
        return !isOver_;
    }

    /// Waits until there may be another line.
    void awaitNews()
    {
        std::chrono::nanoseconds limit = timeToWait(nextLine_ - clock_());
        if (!watch_.trouble().empty()) {
            sayOnce(watch_.trouble());
            limit = std::min(limit, pauseBetweenLooks);
        }
        wait({.output = 0, .watch = POLLIN, .limit = limit});
    }

    void sayOnce(const std::string& trouble)
    {
        if (!std::exchange(hasSaidTrouble_, true)) {
            messages_.say(trouble);
        }
    }

    /// The events that end a wait, besides the end of following.
    struct Wakers {
        short output;
        short watch;
        std::optional<std::chrono::nanoseconds> limit;  ///< absent: none
    };

    /// Whether the output has room.
    bool wait(const Wakers& wakers)
    {
        enum { signals, output, watch };
        std::array<base::PollSource, 3> sources = {{
            {signals_.descriptor()},
            {output_, wakers.output},
            {wakers.watch != 0 ? watch_.descriptor() : -1, wakers.watch},
        }};
        base::waitFor(sources, wakers.limit);
        isOver_ = sources[signals].isReady() || sources[output].hasFailed();
        return sources[output].isReady();
    }

    void write()
    {
        const base::WriteResult result = base::writeWithoutWaiting(output_, unwritten_);
        unwritten_.erase(0, result.count);
        if (result.error == EPIPE) {
            isOver_ = true;
        } else if (result.error != 0) {
            failToWrite(result.error);
        }
    }

    const workspace::Workspace& workspace_;
    const Clock& clock_;
    const BarLines& lines_;
    const int output_;
    base::LineWriter& messages_;
    const base::HeldSignals signals_{SIGTERM, SIGINT};
    const base::BrokenPipesAreErrors brokenPipes_;
    base::DirectoryWatch watch_;
    const Instant begin_;
    BarReadingTimes readings_;
    Instant nextLine_;
    BarReading reading_;
    std::string written_;    ///< the last lines
    std::string unwritten_;  ///< the part of them that is not written yet
    bool hasSaidTrouble_ = false;
    bool isOver_ = false;
};

}  // namespace

work::SummarizedWork readSummaries(const workspace::Workspace& workspace, Instant now)
{
    WidgetSnapshot widget = workspace.widgetSnapshot(now);
    return work::SummarizedWork::of(std::move(widget), workspace.agentSnapshot());
}

void followBar(const workspace::Workspace& workspace, const Clock& clock, const BarLines& lines, int output,
               base::LineWriter& messages)
{
    // The number of a closed output would otherwise go to a descriptor that is opened here.
    if (::fcntl(output, F_GETFD) == -1) {
        failToWrite(errno);
    }
    BarFollower(workspace, clock, lines, output, messages).run();
}

}  // namespace quillmere::bar
