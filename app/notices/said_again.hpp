// Notices beside the one at the event: a minute before it, and while it waits.
#pragma once

#include "base/text/local_time.hpp"
#include "notices/standing_events.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// The end of the running focus session, when it comes within a minute. Absent for a session that is paused,
/// or that has been planned for a minute or less.
std::optional<StandingEvent> eventAhead(const QuillmereState& state, Instant now);

/// Gives each event of the work its last reminder that is due at the present. The reminders, in seconds after
/// the event, ascend.
void addReminders(std::vector<StandingEvent>& events, const std::vector<double>& reminderSeconds,
                  const base::SeenFrom& here);

/// The record of the notice that is due for the event: that of its reminder, otherwise that of the event.
std::string deliveryKey(const StandingEvent& event);

/// All records that the notice makes. A reminder makes those of the event and of the reminders before it,
/// too: a computer that was off says a thing once, however many notices it has missed.
std::vector<std::string> deliveryKeys(const StandingEvent& event);

}  // namespace quillmere::notices
