// Records what happened by itself since a state was saved: timers ran out, a block was due.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <vector>

namespace quillmere::workspace {

/// Something that happened without a command.
struct Event {
    enum class Kind { blockStarted, focusEnded, breakEnded };

    Kind kind;
    Instant at;
};

/// Brings a state up to `now`: begins a scheduled block that is due, ends a focus session or announces the
/// end of a break whose time has run out. A timer that ran out earlier is evaluated at the instant at which
/// it ran out, so the record is right however late this is called. Returns what was recorded.
std::vector<Event> catchUp(QuillmereState& state, Instant now);

}  // namespace quillmere::workspace
