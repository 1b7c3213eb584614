// A short description of an operation's outcome in a scene.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "operations.hpp"

namespace quillmere::test {

/// The result of the operation, and the changes in the tree that differ from those of a successful run:
/// "EISDIR + state.json" failed after replacing the state, "done - state.json" left the state unchanged. An
/// unusual mode is named. An operation that blocks forever is "SIGALRM".
struct Outcome {
    std::string words;
    std::string errors;  ///< printed on standard error
    std::size_t memory;  ///< peak memory of the operation in bytes
};

/// Makes a scene below `directory`, runs the operation, and compares the tree before and after.
Outcome outcomeOf(const Operation& operation, void (*make)(Scene&), const std::filesystem::path& directory);

}  // namespace quillmere::test
