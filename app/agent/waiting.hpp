// Waiting for an answer of the person.
#pragma once

#include "agent/answer_watch.hpp"
#include "agent/attempt.hpp"
#include "workspace/workspace.hpp"

#include <string>

namespace quillmere::agent {

/// A call whose result is the question: as soon as it has an answer, or at the deadline. Tries for a second
/// to read a state that cannot be read, because another program may be writing it in place. `watch` must
/// outlive the call.
protocol::Call waitForAnswer(const workspace::Workspace& workspace, AnswerWatch& watch, const std::string& id,
                             protocol::Moment deadline);

}  // namespace quillmere::agent
