// Blocks named by their number in the history, which only a person at a terminal may use.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>

namespace quillmere::cli {

class Program;

/// The name with a number replaced by the name of the block: 1 is the block that was finished last, 1.2 its
/// second session. Any other text is returned as it is. The number of a block changes with every block that
/// is finished, so the block is shown and asked for first, unless the command asks anyway. Throws
/// ProgramError
/// (`usage`) without a terminal and for a number that no block has, and (`refused`) when the person says no.
std::string nameWithoutNumber(const std::string& name, bool commandAsks, const QuillmereState& state,
                              Program& program);

}  // namespace quillmere::cli
