// The summary that an agent reads, and its schema.
#pragma once

#include "agent/protocol/offer.hpp"
#include "workspace/workspace.hpp"

#include <string>

namespace quillmere::agent {

/// The summary of the saved state as of now, in the format of the file agent-state.json, whose own summary is
/// as of the last change. Neither locks nor writes; throws what Workspace::look throws.
std::string summaryText(const workspace::Workspace& workspace);

/// The JSON Schema (2020-12) of the summary. It accepts exactly what this program writes.
const base::SortedJson& summarySchema();

}  // namespace quillmere::agent
