// The figures of a state.
#pragma once

#include "figures/local_day.hpp"
#include "figures/look_back.hpp"

namespace quillmere::figures {

/// `state` must have been screened. `today` is a day of the local time zone, as all days. The result points
/// into `state`.
///
/// The records do not say when a session was paused. Its focus time is taken to be continuous from its start,
/// so the division at a midnight is exact only for sessions without pauses.
LookBack statistics(const QuillmereState& state, const Range& range, Day today, const Habits& habits = {});

/// Seconds of focus on the present day of a calendar: those of `statistics`, from the blocks of the present
/// (base::Reach). For displays that are drawn every second.
double focusToday(const QuillmereState& state, Instant now, LocalCalendar& calendar);

}  // namespace quillmere::figures
