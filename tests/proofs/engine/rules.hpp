// The rules of the workflow, stated a second time.
//
// Nothing here calls the engine or any function of the library: the record types alone are shared. Each
// rule looks at the situation before a call and says what must come of it, in the order in which a
// person would check it.
#pragma once

#include <optional>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

/// What must come of a call.
struct Ruling {
    bool isFatal;          ///< the program must stop; the rest says nothing then
    Answer answer;         ///< error or report
    QuillmereState after;  ///< the whole state

    /// Which record of `after` carries an identifier that only the engine knows: it draws it. The one
    /// that stands there is a placeholder.
    enum class Drawn { nothing, session, question };
    Drawn drawn;
};

Ruling ruling(const QuillmereState& before, const Call& call);

/// What the clock that runs must show, in whole seconds.
struct Reading {
    bool isFatal;  ///< a number of seconds that no 64 bits hold; the rest says nothing then
    bool ofFocus;  ///< otherwise of a break
    bool isPaused;
    std::int64_t elapsed;
    std::int64_t left;
};

/// Absent when no clock runs.
std::optional<Reading> reading(const QuillmereState& state, Instant now);

}  // namespace quillmere::test
