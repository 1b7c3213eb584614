// The part of a situation that every display shows. It can be made from a state, or from the two summaries.
#pragma once

#include "work/summarized_work.hpp"
#include "workspace/situation.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmere::work {

/// A running focus session or break.
struct TimerView {
    std::int64_t remainingSeconds;  ///< below zero in overtime
    bool isPaused;
    double usedShare;  ///< 0 to 1; stands still in a pause
    Instant end;       ///< when it runs out, or has run out; in a pause, if it ended now
    std::optional<Instant> pausedSince = {};

    /// Once no whole second is left, as the engine has it (TimerSnapshot::hasRunOut).
    bool hasRunOut() const { return remainingSeconds < 1; }
};

/// When a scheduled block runs.
struct ScheduleView {
    Instant start;
    Instant end;
};

struct ShortView {
    WidgetSnapshot snapshot;  ///< the widget's summary as of now
    std::string heading;      ///< beside the title of the phase: what is to be done
    std::optional<TimerView> timer;
    /// Since when the time of the break is over, or that of the session that waits for its review. Absent for
    /// a session that the person ended, and where the clock was set back to before that instant.
    std::optional<Instant> overSince;
    std::optional<ScheduleView> schedule;  ///< while a scheduled block waits

    static ShortView of(const workspace::Situation& situation);

    /// The same for the work as the summaries tell it, brought up to `now` as workspace::catchUp does.
    /// `snapshot.updatedAt` stays that of the widget's summary.
    static ShortView of(const SummarizedWork& work, Instant now);

    /// The same for the widget's summary alone. It does not tell when a pause began, which share of the time
    /// a paused session has used once anything was saved in the pause, whether the session in review ran out,
    /// nor when a scheduled block begins.
    static ShortView of(const WidgetSnapshot& summary, Instant now);
};

}  // namespace quillmere::work
