// Records with every optional field present in one place.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Two outcomes and two sessions; the last session has every field.
Block completeBlock();

/// A state with a complete current block and one block in the history. The engine never produces such a
/// state; it has every key.
QuillmereState completeState();

}  // namespace quillmere::test
