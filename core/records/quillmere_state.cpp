#include <quillmere/records/quillmere_state.hpp>

#include <algorithm>
#include <iterator>

namespace quillmere {

QuillmereState QuillmereState::initial(Instant updatedAt)
{
    return {
        .id = Identifier::random(),
        .workflowState = WorkflowState::idle,
        .currentBlock = std::nullopt,
        .blockHistory = {},
        .plannedNextSession = std::nullopt,
        .breakStartedAt = std::nullopt,
        .breakExtensionSeconds = 0,
        .breakEndNotifiedAt = std::nullopt,
        .agentQuestions = {},
        .updatedAt = updatedAt,
    };
}

const WorkSession* QuillmereState::currentSession() const
{
    return currentBlock && !currentBlock->sessions.empty() ? &currentBlock->sessions.back() : nullptr;
}

std::vector<AgentQuestion> QuillmereState::openQuestions() const
{
    std::vector<AgentQuestion> open;
    std::copy_if(agentQuestions.begin(), agentQuestions.end(), std::back_inserter(open),
                 [](const AgentQuestion& question) { return question.isOpen(); });
    return open;
}

bool QuillmereState::interruptible() const
{
    if (workflowState != WorkflowState::focusing) {
        return true;
    }
    const WorkSession* session = currentSession();
    return session && session->pausedAt;
}

}  // namespace quillmere
