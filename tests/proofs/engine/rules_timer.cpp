// Whole seconds, calculated in integers of twice the width so that overflow can be detected.
#include "proofs/engine/rules.hpp"

namespace quillmere::test {
namespace {

__extension__ using Wide = __int128;

constexpr Wide most = INT64_MAX;
constexpr Wide least = INT64_MIN;

constexpr bool fits(Wide value) { return value >= least && value <= most; }

/// A number of whole seconds; absent when it cannot be represented.
using Whole = std::optional<Wide>;

/// The greatest integer not above `seconds`.
Whole roundedDown(double seconds)
{
    constexpr double twoTo63 = 9'223'372'036'854'775'808.0;
    if (!(seconds >= -twoTo63) || !(seconds < twoTo63)) {
        return std::nullopt;
    }
    const auto towardsZero = static_cast<Wide>(seconds);
    return static_cast<double>(towardsZero) > seconds ? towardsZero - 1 : towardsZero;
}

Whole difference(Whole minuend, Whole subtrahend)
{
    if (!minuend || !subtrahend || !fits(*minuend - *subtrahend)) {
        return std::nullopt;
    }
    return *minuend - *subtrahend;
}

Whole atLeastZero(Whole value) { return value && *value < 0 ? Whole(0) : value; }

/// The remaining time is also shown as an absolute value, which the lowest integer does not have.
Reading shown(bool ofFocus, bool isPaused, Whole total, Whole counted)
{
    const Whole elapsed = atLeastZero(counted);
    const Whole left = difference(total, elapsed);
    if (!left || *left == least) {
        return {.isFatal = true, .ofFocus = ofFocus, .isPaused = isPaused, .elapsed = 0, .left = 0};
    }
    return {.isFatal = false,
            .ofFocus = ofFocus,
            .isPaused = isPaused,
            .elapsed = static_cast<std::int64_t>(*elapsed),
            .left = static_cast<std::int64_t>(*left)};
}

}  // namespace

std::optional<Reading> reading(const QuillmereState& state, Instant now)
{
    if (!state.currentBlock) {
        return std::nullopt;
    }
    const Block& block = *state.currentBlock;
    if (state.workflowState == WorkflowState::breaking && state.breakStartedAt) {
        const Whole total = roundedDown(block.breakDurationSeconds + state.breakExtensionSeconds);
        return shown(false, false, total, roundedDown(now - *state.breakStartedAt));
    }
    if (state.workflowState == WorkflowState::focusing && !block.sessions.empty()) {
        const WorkSession& session = block.sessions.back();
        const Whole since = roundedDown(session.pausedAt.value_or(now) - session.startedAt);
        const Whole active = difference(since, roundedDown(session.accumulatedPausedSeconds));
        const Whole total = roundedDown(session.plannedDurationSeconds);
        return shown(true, session.pausedAt.has_value(), total, active);
    }
    return std::nullopt;
}

}  // namespace quillmere::test
