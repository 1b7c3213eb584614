// Holds the arguments of a tool call against the tool's input schema.
#pragma once

#include "agent/protocol/offer.hpp"

#include <string>

namespace quillmere::agent::protocol {

/// Says in one sentence what does not fit; empty when all does. Of JSON Schema (2020-12) it knows what input
/// schemas here use: an object that takes no properties but its own, `required`, and of each property the
/// `type` "string", "integer" or "boolean", `minimum` and `maximum`. Everything else is for the reader.
std::string misfitOf(const Json& arguments, const Json& inputSchema);

}  // namespace quillmere::agent::protocol
