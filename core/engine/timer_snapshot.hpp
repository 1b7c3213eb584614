// The one timer that runs: the focus session's, or the break's.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>

namespace quillmere {

enum class TimerKind { focus, breakTime };

template <>
struct EnumerationTable<TimerKind> {
    static constexpr auto rows = std::to_array<RawText<TimerKind>>({
        {TimerKind::focus, "focus"},
        {TimerKind::breakTime, "breakTime"},
    });
};

/// What an evaluation of the timer reports.
enum class TimerTransition { noChange, focusEnded, breakEnded };

/// The timer in whole seconds at one instant: computed from a state, never kept in it. The engine,
/// the agent's summary and the widget all count by this.
struct TimerSnapshot {
    TimerKind kind;
    std::int64_t elapsedSeconds;    ///< counted time so far, pauses left out; never negative
    std::int64_t remainingSeconds;  ///< planned minus elapsed; negative in overtime
    std::int64_t displaySeconds;    ///< what a countdown shows: counts up again in overtime
    bool isOvertime;                ///< past the planned end
    bool isPaused;                  ///< of a focus session; a break never is

    /// The timer of `from` as seen `at` an instant; absent outside focus and break, and when the
    /// state lacks what the timer needs. Every term is rounded down on its own, except that a break
    /// and its extension are added first. A duration that does not fit 64 bits of whole seconds is a
    /// fatal error.
    static std::optional<TimerSnapshot> derive(const QuillmereState& from, Instant at);

    /// Whether less than a second remains: then an evaluation of the timer ends the focus session, or
    /// announces the end of the break.
    bool hasRunOut() const { return remainingSeconds < 1; }

    friend bool operator==(const TimerSnapshot&, const TimerSnapshot&) = default;
};

/// Whether a focus session ended because its time had run out, and not because the person ended it early:
/// the timer as it stood at `endedAt`. False for a session that has not ended. The fatal errors are those of
/// TimerSnapshot::derive.
bool timeRanOut(const WorkSession& session);

}  // namespace quillmere
