// What happened while nobody looked.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <vector>

namespace quillmere::workspace {

/// Something that came about by itself.
struct Event {
    enum class Kind { blockStarted, focusEnded, breakEnded };

    Kind kind;
    Instant at;
};

/// Brings a state up to `now`: begins a scheduled block that is due, ends a focus session or announces
/// the end of a break whose time has run out. A timer that ran out earlier is evaluated at the instant
/// at which it did, so the record is true however late somebody looks.
std::vector<Event> catchUp(QuillmereState& state, Instant now);

}  // namespace quillmere::workspace
