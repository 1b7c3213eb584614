#include "work/countdown.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

namespace quillmere::work {

std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now)
{
    if (!snapshot.countdown) {
        return std::nullopt;
    }
    const WidgetCountdown& countdown = *snapshot.countdown;
    return countdown.isPaused ? countdown.frozenRemainingSeconds : wholeSeconds(countdown.endsAt - now);
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
