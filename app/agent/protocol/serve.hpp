// Runs a server on the channels of this process.
#pragma once

#include "agent/protocol/changes.hpp"
#include "agent/protocol/server.hpp"

#include <cstddef>

namespace quillmere::agent::protocol {

/// The longest line that is read, in bytes.
inline constexpr std::size_t longestLine = 10 * 1024 * 1024;

/// Descriptors of this process.
struct Channels {
    int in;
    int out;
    int ending;  ///< readable when the process is asked to end
};

/// Whether a descriptor leads anywhere. To be asked before any other file is opened: that would take the
/// place of a channel that is closed.
bool isOpen(int descriptor);

/// Reads lines from `in` and writes lines to `out`, until the input ends, nobody reads the output any more,
/// or the process is asked to end. What has an answer by the end of the input is still answered, and what a
/// call changes is changed; calls that only wait are dropped. Works on one line at a time, and on none while
/// about a megabyte waits for a client that does not read. SIGPIPE must not end the process.
void serve(Server& server, Changes& changes, const Channels& channels);

}  // namespace quillmere::agent::protocol
