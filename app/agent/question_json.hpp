// Questions and their answers as JSON for an agent.
#pragma once

#include "agent/protocol/offer.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>

namespace quillmere::agent {

/// The question with an id. Throws ToolRefusal when the text is no id or no question has it, and what
/// Workspace::look throws. Reads the years only for a question that is not open.
AgentQuestion questionIn(const workspace::Workspace& workspace, const std::string& id);

/// The members of a question as the files have them, with null for an absent one, and its `status`: "open" or
/// "answered". The answer of an open question is null, also when another program has written one.
base::SortedJson questionJson(const AgentQuestion& question);
base::SortedJson questionsJson(const QuillmereState& state, bool openOnly);

/// The JSON Schema (2020-12) of a question.
const base::SortedJson& questionSchema();

}  // namespace quillmere::agent
