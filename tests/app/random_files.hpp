// Made-up state files, as they are written and with somebody's hand in them.
#pragma once

#include "base/reach.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace quillmere::test {

/// A history of up to a dozen blocks before `now`, questions with and without answers, texts with quotes,
/// backslashes and line breaks.
QuillmereState randomState(std::mt19937& random, Instant now);

/// The same text changed in one place: a byte, a line left out or written twice, another indentation, an
/// unknown member, a key in another spelling, an escape, two lines as one, something after the end. It may
/// still be a state, and even the same one.
std::string changedByHand(std::string text, std::mt19937& random);

/// What StateStore writes for a state.
std::string textOf(const QuillmereState& state);

/// The state of a text. Absent for a text that is no state, and for one whose reviews get new identifiers at
/// each reading.
std::optional<QuillmereState> stateOf(const std::string& text);

/// What the present of a state is, computed from all of it.
QuillmereState presentOf(QuillmereState state, base::Reach reach, Instant now);

}  // namespace quillmere::test
