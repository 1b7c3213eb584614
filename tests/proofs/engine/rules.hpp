// The reference model of the workflow rules.
//
// Independent of the library: calls no function of it and shares only the record types. Each rule looks at
// the situation before a call and states the expected outcome, in the order in which a person would check it.
#pragma once

#include <optional>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

/// The expected outcome of a call.
struct ExpectedOutcome {
    bool isFatal;          ///< the program must stop; the other fields are meaningless then
    Answer answer;         ///< error or report
    QuillmereState after;  ///< the whole state

    /// The record of `after` that carries a newly drawn identifier, which only the engine knows. `after`
    /// holds a placeholder in its place.
    enum class Drawn { nothing, session, question };
    Drawn drawn;
};

ExpectedOutcome expectedOutcome(const QuillmereState& before, const Call& call);

/// The expected display of the running clock, in whole seconds.
struct Reading {
    bool isFatal;  ///< the seconds do not fit 64 bits; the other fields are meaningless then
    bool ofFocus;  ///< a focus clock, otherwise a break clock
    bool isPaused;
    std::int64_t elapsed;
    std::int64_t left;
};

/// Absent when no clock is running.
std::optional<Reading> reading(const QuillmereState& state, Instant now);

}  // namespace quillmere::test
