// Made-up state files, as they are written and with somebody's hand in them.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <random>
#include <string>

namespace quillmere::test {

/// A history of up to a dozen blocks before `now`, questions with and without answers, texts with quotes,
/// backslashes and line breaks.
QuillmereState randomState(std::mt19937& random, Instant now);

/// The same text changed in one place: a byte, a line left out or written twice, another indentation, an
/// unknown member, a key in another spelling, an escape, two lines as one, something after the end. It may
/// still be a state, and even the same one.
std::string changedByHand(std::string text, std::mt19937& random);

}  // namespace quillmere::test
