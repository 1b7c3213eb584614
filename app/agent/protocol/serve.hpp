// Runs a server on two descriptors.
#pragma once

#include "agent/protocol/changes.hpp"
#include "agent/protocol/server.hpp"

#include <cstddef>

namespace quillmere::agent::protocol {

/// The limit of a line, in bytes.
inline constexpr std::size_t longestLine = 10 * 1024 * 1024;

/// Descriptors, which the caller owns.
struct Channels {
    int in;
    int out;
    int ending;  ///< readable when the process is asked to end
};

/// Whether a descriptor is open. Call it before any file is opened, because that file would get the number of
/// a closed channel.
bool isOpen(int descriptor);

/// Reads lines from `in` and writes lines to `out`, until the input ends, the reader of the output is gone,
/// or `ending` is readable. At the end of the input, requests are still answered and calls that change
/// something are finished; calls that only wait are dropped. Handles one line at a time, and none while about
/// a megabyte of output waits for a client that does not read. SIGPIPE must not end the process.
void serve(Server& server, Changes& changes, const Channels& channels);

}  // namespace quillmere::agent::protocol
