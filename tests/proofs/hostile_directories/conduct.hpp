// What a call does in a scene, in a few words.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "columns.hpp"

namespace quillmere::test {

/// What came of it, and, as far as that differs from what the call is for, what changed anywhere in the
/// tree: "EISDIR + state.json" failed after it had replaced the state, "done - state.json" left the state
/// alone. A mode is named where it is not the usual one. A call that waits for ever is "SIGALRM".
struct Conduct {
    std::string words;
    std::string errors;  ///< what was printed on standard error
    std::size_t memory;  ///< the most that the call took, in bytes
};

/// Makes a scene on `ground`, calls, and looks at what changed.
Conduct conductOf(const Column& column, void (*make)(Scene&), const std::filesystem::path& ground);

}  // namespace quillmere::test
