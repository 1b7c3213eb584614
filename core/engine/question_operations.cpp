// Questions of an outside agent; they do not depend on the workflow.
#include <quillmere/engine/steps.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <utility>

namespace quillmere {

static_assert(std::is_nothrow_move_constructible_v<AgentQuestion>);

void WorkflowEngine::addQuestion(QuillmereState& state, std::string question, Instant now) const
{
    require(state, Step::addQuestion);
    state.agentQuestions.push_back({
        .id = Identifier::random(),
        .question = std::move(question),
        .createdAt = now,
        .answer = std::nullopt,
        .answeredAt = std::nullopt,
    });
    finish(state, Step::addQuestion, now);
}

void WorkflowEngine::answerQuestion(QuillmereState& state, const Identifier& id, std::string answer,
                                    Instant now) const
{
    require(state, Step::answerQuestion);
    const auto question = std::find_if(state.agentQuestions.begin(), state.agentQuestions.end(),
                                       [&](const AgentQuestion& candidate) { return candidate.id == id; });
    require(question != state.agentQuestions.end());
    question->answer = std::move(answer);
    question->answeredAt = now;
    finish(state, Step::answerQuestion, now);
}

}  // namespace quillmere
