// What a person may have to be told. A notice is about what stands in the state, whoever brought it about and
// whoever recorded it: so any number of programs agree on what there is to tell, and what has been dealt with
// before anybody could be told needs no notice.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::notices {

struct StandingEvent {
    enum class Kind { focusEnded, breakEnded, blockStarted, questionRaised };

    Kind kind;
    std::string key;   ///< one for each event, the same in every program; fit for a file's name
    Instant at;        ///< when it came about
    std::string text;  ///< what it is about, as the person or an agent wrote it; may be empty

    friend bool operator==(const StandingEvent&, const StandingEvent&) = default;
};

/// The kind as programs read it: "focus_ended".
std::string_view eventName(StandingEvent::Kind kind);

/// A focus session that its timer ended and that waits for its review; a break whose end has come; a block
/// that began by its schedule and has no session yet; every open question. For a state that was screened.
std::vector<StandingEvent> standingEvents(const QuillmereState& state);

/// Their keys, in order.
std::vector<std::string> keysOf(const std::vector<StandingEvent>& events);

/// Whether this is the time to tell it: a question waits until the person may be interrupted, the rest is
/// what interrupts.
bool mayBeTold(const StandingEvent& event, const QuillmereState& state);

}  // namespace quillmere::notices
