// The questions of two copies.
#pragma once

#include <quillmere/records/agent_question.hpp>

#include <vector>

namespace quillmere::merge {

/// The questions of both, each once. An answered copy is kept before an open one, the later answer before the
/// earlier. Where neither side has all questions, they are in the order in which they were asked.
std::vector<AgentQuestion> mergedQuestions(const std::vector<AgentQuestion>& a,
                                           const std::vector<AgentQuestion>& b);

}  // namespace quillmere::merge
