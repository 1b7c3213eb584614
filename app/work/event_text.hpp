// The names and texts of events, for every surface.
#pragma once

#include "base/text/local_time.hpp"
#include "workspace/catching_up.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// The events that a person is told of: what the passing of time recorded, and questions of agents.
enum class EventKind { blockStarted, focusEnded, breakEnded, questionRaised };

/// An event for the writer of a hook.
struct EventDescription {
    std::string_view name;
    std::string_view meaning;  ///< a sentence: "The time of a focus session ran out; its review waits."
};

/// In the order of the enumeration.
std::vector<EventDescription> allEvents();

EventKind kindOf(const workspace::Event& event);

/// For programs: "focus_ended".
std::string_view eventName(EventKind kind);

/// A few words without a time: "Focus is over".
std::string_view eventHeading(EventKind kind);

/// A few words for a person who has not reacted to it: "Review waiting". A time since when may follow.
std::string_view waitingHeading(EventKind kind);

/// The heading for several questions at once: "3 questions wait". For one it is the heading of its event.
std::string waitingQuestionsText(std::size_t count);

/// A sentence with the local time, as short as it is clear at the present: "The focus session ended at
/// 15:25."
std::string eventText(EventKind kind, Instant at, const base::SeenFrom& here);
std::string eventText(const workspace::Event& event, const base::SeenFrom& here);

}  // namespace quillmere::work
