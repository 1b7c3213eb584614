// JSON that the commands print.
#pragma once

#include "base/json.hpp"

#include <iosfwd>
#include <vector>

namespace quillmere::workspace {
struct Event;
}

namespace quillmere::cli {

/// Prints indented JSON in ASCII, so that a terminal obeys nothing in it. Ill-formed text is replaced.
void printJson(std::ostream& out, const base::Json& json);

/// [{"event": "focus_ended", "at": "2026-11-15T15:25:00Z"}, …]
base::Json eventsJson(const std::vector<workspace::Event>& events);

}  // namespace quillmere::cli
