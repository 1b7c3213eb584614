// Reads the state, with an error that leads to the fault.
#pragma once

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/state_store.hpp>

namespace quillmere::workspace {

/// The saved state (StateStore::load). Throws Refusal (`unusableData`) when the text is at fault: it names
/// the file, the line and the column, and says how earlier versions are restored. Throws `std::system_error`
/// when the file cannot be read.
QuillmereState load(const StateStore& states);

}  // namespace quillmere::workspace
