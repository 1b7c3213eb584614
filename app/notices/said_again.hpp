// Notices beside the one at the event: a minute before it, while it waits, and after a sleep of the computer.
#pragma once

#include "base/text/local_time.hpp"
#include "notices/standing_events.hpp"
#include "work/slept_through.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// Before the end of a focus session.
inline constexpr std::int64_t secondsAhead = 60;

/// The end of the running focus session, when it comes within a minute. Absent for a session that is paused,
/// or that has been planned for a minute or less.
std::optional<StandingEvent> eventAhead(const QuillmereState& state, Instant now);

/// Gives each event of the work its last reminder that is due at the present. The reminders, in seconds after
/// the event, ascend. `overSince` is that of the displays (work::ShortView): an event of the work is waiting
/// since then, where displays name an instant, and otherwise since it happened.
void addReminders(std::vector<StandingEvent>& events, const std::vector<double>& reminderSeconds,
                  std::optional<Instant> overSince, const base::SeenFrom& here);

/// Tells of a sleep of the computer: with the end of the session, which came meanwhile, or else by an event
/// of its own. Of all watches one tells it, because all have counted the same `total` seconds of sleep.
void addSleep(std::vector<StandingEvent>& events, const work::SleptThrough& slept, std::int64_t total,
              const base::SeenFrom& here);

/// The record of the notice that is due for the event: that of its reminder, otherwise that of the event.
std::string deliveryKey(const StandingEvent& event);

/// All records that the notice makes. A reminder makes those of the event and of the reminders before it,
/// too: a computer that was off says a thing once, however many notices it has missed.
std::vector<std::string> deliveryKeys(const StandingEvent& event);

}  // namespace quillmere::notices
