// The clock as the files have it.
#pragma once

#include <quillmere/records/instant.hpp>

namespace quillmere::workspace {

/// A clock in whole seconds, as files keep instants, so that memory and file agree. It throws Refusal
/// (`fileError`) for a reading outside the years 0000 to 9999 (UTC), which no file can have.
Clock fileClock(Clock clock);

}  // namespace quillmere::workspace
