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

/// The seconds left on the clock that runs, and which clock it is.
struct SecondsLeft {
    bool isFatal;  ///< a number of seconds that no 64 bits hold
    bool ofFocus;  ///< otherwise of a break
    std::int64_t seconds;
};

/// Absent when no clock runs.
std::optional<SecondsLeft> secondsLeft(const QuillmereState& state, Instant now);

}  // namespace quillmere::test
