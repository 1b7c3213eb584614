// How an agent waits for what the person has to say.
#pragma once

#include "agent/answer_watch.hpp"
#include "agent/attempt.hpp"
#include "workspace/workspace.hpp"

#include <string>

namespace quillmere::agent {

/// Returns a question as soon as it has an answer, or as it is at the deadline. A state that cannot be read
/// is looked at again for a second: somebody may be writing it in place. `watch` must outlive the call.
agent::protocol::Call waitForAnswer(const workspace::Workspace& workspace, AnswerWatch& watch,
                                    const std::string& id, agent::protocol::Moment deadline);

}  // namespace quillmere::agent
