// Waiting for several descriptors at once, for the loops of long-lived programs.
#pragma once

#include <poll.h>

#include <chrono>
#include <optional>
#include <span>

namespace quillmere::base {

/// A descriptor that a loop waits for, and what the last wait found there.
struct PollSource {
    int descriptor;         ///< -1: left out
    short events = POLLIN;  ///< as in poll(2): POLLIN, POLLOUT or both; 0: only failures
    short found = 0;        ///< set by `waitFor`

    /// A read or a write would return now, perhaps with the end of the file or an error.
    bool isReady() const { return found != 0; }

    /// The other end is gone, or the descriptor has an error. Waiting again returns at once, each time: the
    /// loop ends, or leaves this descriptor out from now on. What was sent before may still be read.
    bool hasFailed() const { return (found & (POLLERR | POLLHUP)) != 0; }
};

/// Waits until a source is ready; sets `found` of all. Returns whether one is ready. Returns false after the
/// limit, and also earlier when a signal handler has run: the caller looks at its clock and waits again. No
/// limit: waits as long as it takes; zero or less: only looks. Throws `std::system_error` when a descriptor
/// is not open (EBADF) and when poll(2) fails.
bool waitFor(std::span<PollSource> sources, std::optional<std::chrono::nanoseconds> limit);

}  // namespace quillmere::base
