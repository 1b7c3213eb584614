// Checks the arguments of a tool call against the tool's input schema.
#pragma once

#include "agent/protocol/offer.hpp"

#include <string>

namespace quillmere::agent::protocol {

/// One sentence about the first argument that does not fit; empty when all fit. Checks only the part of JSON
/// Schema (2020-12) that the input schemas here use: an object without additional properties, `required`, and
/// for each property the `type` "string", "integer" or "boolean", `minimum` and `maximum`. Other keywords
/// inform the model.
std::string misfitOf(const SortedJson& arguments, const SortedJson& inputSchema);

}  // namespace quillmere::agent::protocol
