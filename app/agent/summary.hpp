// The summary that an agent reads, and what it looks like.
#pragma once

#include "agent/protocol/offer.hpp"
#include "workspace/workspace.hpp"

#include <string>

namespace quillmere::agent {

/// The summary of the saved state as of now, as the file has it. Neither locks nor writes; throws what
/// Workspace::look throws.
std::string summaryText(const workspace::Workspace& workspace);

/// Its JSON Schema (2020-12), which takes exactly what this program writes.
const protocol::Json& summarySchema();

}  // namespace quillmere::agent
