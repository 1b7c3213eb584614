// The tools of an agent: look, ask, and wait for answers. None of them starts, pauses, ends or changes work.
#pragma once

#include "agent/answer_watch.hpp"
#include "agent/protocol/offer.hpp"
#include "workspace/workspace.hpp"

#include <vector>

namespace quillmere::agent {

/// The tools in the order of their list. `watch` must outlive them.
std::vector<protocol::Tool> tools(const workspace::Workspace& workspace, AnswerWatch& watch);

}  // namespace quillmere::agent
