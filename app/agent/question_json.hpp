// Questions with their answers, as an agent reads them.
#pragma once

#include "agent/protocol/offer.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>

namespace quillmere::agent {

using protocol::Json;

/// The question with an id; throws Refusal when there is none, or when that is no id. Valid as long as the
/// state.
const AgentQuestion& questionIn(const QuillmereState& state, const std::string& id);

/// The members of the file, always all of them, and the `status`: "open" or "answered". What an open question
/// has for an answer, as no program here writes it, is none yet.
agent::protocol::Json questionJson(const AgentQuestion& question);
agent::protocol::Json questionsJson(const QuillmereState& state, bool openOnly);

/// The JSON Schema (2020-12) of one of them.
const agent::protocol::Json& questionSchema();

}  // namespace quillmere::agent
