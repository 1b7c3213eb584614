// The outcome of an operation in a scene, in a few words.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "operations.hpp"

namespace quillmere::test {

/// The result of the operation and, as far as it differs from the operation's purpose, what changed anywhere
/// in the tree: "EISDIR + state.json" failed after it had replaced the state, "done - state.json" left the
/// state alone. A mode is named where it is not the usual one. An operation that waits for ever is "SIGALRM".
struct Outcome {
    std::string words;
    std::string errors;  ///< what was printed on standard error
    std::size_t memory;  ///< the most that the operation took, in bytes
};

/// Makes a scene below `directory`, tries the operation, and compares the tree before and after.
Outcome outcomeOf(const Operation& operation, void (*make)(Scene&), const std::filesystem::path& directory);

}  // namespace quillmere::test
