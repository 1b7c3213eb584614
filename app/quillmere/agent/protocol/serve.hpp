// Runs a server on two channels of this process.
#pragma once

#include "agent/protocol/changes.hpp"
#include "agent/protocol/server.hpp"

#include <cstddef>

namespace quillmere::app::protocol {

/// The longest line that is read, in bytes.
inline constexpr std::size_t longestLine = 10 * 1024 * 1024;

/// Reads lines from `in` and writes lines to `out`, until the input ends, nobody reads the output any more,
/// or SIGTERM or SIGINT comes. What has an answer by the end of the input is still answered; calls that wait
/// are dropped. Reads no further while the client does not read. From here on the process has its signals
/// through a descriptor, to its end. Throws `std::system_error` when the system has no descriptor for that.
void serve(Server& server, Changes& changes, int in, int out);

}  // namespace quillmere::app::protocol
