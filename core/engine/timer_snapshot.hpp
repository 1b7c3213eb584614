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

/// The result of an evaluation of the timer.
enum class TimerTransition { noChange, focusEnded, breakEnded };

/// The timer at one instant, in whole seconds. It is computed from a state and not stored in it. The engine
/// and both summaries use it.
struct TimerSnapshot {
    TimerKind kind;
    std::int64_t elapsedSeconds;    ///< time so far without pauses; never negative
    std::int64_t remainingSeconds;  ///< planned minus elapsed; negative in overtime
    std::int64_t displaySeconds;    ///< for a countdown: the magnitude of `remainingSeconds`
    bool isOvertime;                ///< past the planned end
    bool isPaused;                  ///< false for a break

    /// The timer of the state `from` at an instant. Absent in other workflow states than `focusing` and
    /// `breaking`, and when the state has no session or no start of a break. Each term is rounded down by
    /// itself, but a break and its extension are added first. A duration that does not fit 64 bits of whole
    /// seconds is a fatal error.
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
