// Runs a server on two channels of this process.
#pragma once

#include "agent/protocol/server.hpp"

namespace quillmere::app::protocol {

/// Tells when calls that wait should be asked again.
class Changes {
public:
    virtual ~Changes() = default;

    /// For poll(2); -1 while nothing is watched.
    virtual int descriptor() const = 0;
    /// Takes what has happened. Never waits.
    virtual void take() = 0;
};

/// The longest line that is read, in bytes.
inline constexpr std::size_t longestLine = 10 * 1024 * 1024;

/// Reads lines from `in` and writes lines to `out`, until the input ends, nobody reads the output any more,
/// or SIGTERM or SIGINT comes. What has an answer by the end of the input is still answered; calls that wait
/// are dropped. Reads no further while the client does not read. From here on the process has its signals
/// through a descriptor, to its end. Throws `std::system_error` when the system has no descriptor for that.
void serve(Server& server, Changes& changes, int in, int out);

}  // namespace quillmere::app::protocol
