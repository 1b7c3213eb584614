// The events that a person may have to be notified of.
#pragma once

#include "work/event_text.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// A notice that repeats the one of an event.
struct Reminder {
    std::size_t number;   ///< counts from 1
    std::string heading;  ///< "Review waiting since 14:55"

    friend bool operator==(const Reminder&, const Reminder&) = default;
};

/// A sleep of the computer that a notice tells of.
struct ToldSleep {
    std::string sentence;  ///< work::sleepText
    std::string commands;  ///< work::sleepCommands
    bool isOver;           ///< the session ended meanwhile

    friend bool operator==(const ToldSleep&, const ToldSleep&) = default;
};

/// An event that still stands in a state: the person has not reacted to it yet. It follows from the state
/// alone, so all processes agree on it, whichever of them recorded it, and an event that was dealt with
/// before a notice could be given needs none.
struct StandingEvent {
    work::EventKind kind;
    std::string key;  ///< identifies the event in every process; fit for a file name
    Instant at;
    std::string text;                       ///< an outcome, a title or a question, as written; may be empty
    bool isAhead = false;                   ///< has not happened yet; its notice is a quiet one
    std::optional<Reminder> reminder = {};  ///< the last that is due
    std::optional<ToldSleep> sleep = {};    ///< in the session whose end it is, or is to be

    friend bool operator==(const StandingEvent&, const StandingEvent&) = default;
};

/// A focus session whose time ran out and that waits for its review; a break whose end has come; a block that
/// began by its schedule and has no session yet; every open question. Expects a screened state.
std::vector<StandingEvent> standingEvents(const QuillmereState& state);

/// The keys of the events, in order.
std::vector<std::string> keysOf(const std::vector<StandingEvent>& events);

/// Whether the event may be delivered now: a question waits until the person may be interrupted.
bool mayBeDelivered(const StandingEvent& event, const QuillmereState& state);

}  // namespace quillmere::notices
