// Writing for a reader who may not be reading.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillmere::base {

struct WriteResult {
    std::size_t count = 0;  ///< bytes written; 0 without an error: there is no room now
    int error = 0;          ///< errno where trying again is of no use, EPIPE for example; 0: none
};

/// Writes the beginning of a text that is not empty: PIPE_BUF bytes at most, and nothing while there is no
/// room. Never waits, also when the descriptor is in blocking mode. A text of at most PIPE_BUF bytes is
/// written to a pipe as a whole or not at all. SIGPIPE must not end the process (BrokenPipesAreErrors).
WriteResult writeWithoutWaiting(int descriptor, std::string_view text);

}  // namespace quillmere::base
