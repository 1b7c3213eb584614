#include "work/countdown.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

#include <algorithm>

namespace quillmere::work {
namespace {

/// Seconds that a running countdown has counted at an instant: none before its start, where the clock is
/// after it was set back.
double countedSeconds(const WidgetCountdown& countdown, Instant at)
{
    return std::max(at - countdown.startedAt, 0.0);
}

/// Seconds from the start of a running countdown to its end. The summary has the end as it was expected when
/// the summary was made; a clock that showed less than the start then has put it too early.
double wholeLength(const WidgetSnapshot& snapshot)
{
    const WidgetCountdown& countdown = *snapshot.countdown;
    return countdown.endsAt - snapshot.updatedAt + countedSeconds(countdown, snapshot.updatedAt);
}

}  // namespace

std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now)
{
    if (!snapshot.countdown) {
        return std::nullopt;
    }
    const WidgetCountdown& countdown = *snapshot.countdown;
    return countdown.isPaused ? countdown.frozenRemainingSeconds
                              : wholeSeconds(wholeLength(snapshot) - countedSeconds(countdown, now));
}

std::optional<double> usedShare(const WidgetSnapshot& snapshot, Instant now)
{
    if (!snapshot.countdown || snapshot.countdown->isPaused) {
        return snapshot.sessionProgress(now);
    }
    const double length = wholeLength(snapshot);
    return length > 0 ? std::optional(std::min(countedSeconds(*snapshot.countdown, now) / length, 1.0))
                      : std::nullopt;
}

std::optional<double> usedShare(const workspace::Situation& situation)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer) {
        return std::nullopt;
    }
    const auto elapsed = static_cast<double>(timer->elapsedSeconds);
    const double planned = elapsed + static_cast<double>(timer->remainingSeconds);
    return elapsed < planned ? elapsed / planned : 1.0;
}

}  // namespace quillmere::work
