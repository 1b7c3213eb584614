// The clock of the system.
#pragma once

#include <quillmere/records/instant.hpp>

namespace quillmere {

/// The current instant (clock_gettime(2), CLOCK_REALTIME). A person may set this clock back and forth. Reads
/// it in seconds and nanoseconds: std::chrono::system_clock counts nanoseconds in 64 bits, which end in 2262.
Instant wallClock() noexcept;

}  // namespace quillmere
