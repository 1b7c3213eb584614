// Records with every optional field present in one place.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Two outcomes, two sessions, of which the last has everything that a session can have.
Block completeBlock();

/// A state whose current block is complete, with one block in the history. No engine leaves such a
/// state; it is there to have every key at hand.
QuillmereState completeState();

}  // namespace quillmere::test
