// The whole state of a person's work in one value.
#pragma once

#include <quillmere/records/agent_question.hpp>
#include <quillmere/records/block.hpp>
#include <quillmere/records/session_plan.hpp>
#include <quillmere/records/workflow_state.hpp>

#include <optional>
#include <vector>

namespace quillmere {

/// Only the operations of WorkflowEngine change it. The records refer to each other by identifier and share
/// no memory, so a copy is independent.
struct QuillmereState {
    Identifier id;
    WorkflowState workflowState;
    std::optional<Block> currentBlock;
    std::vector<Block> blockHistory;                ///< finished blocks, the newest first
    std::optional<SessionPlan> plannedNextSession;  ///< written at the last review
    std::optional<Instant> breakStartedAt;          ///< of the running break
    double breakExtensionSeconds;                   ///< on top of the block's break duration
    std::optional<Instant> breakEndNotifiedAt;      ///< when the end of the break was announced
    std::vector<AgentQuestion> agentQuestions;      ///< all of them, in the order in which they were asked
    Instant updatedAt;                              ///< of the last change

    /// An idle state without a block, with a new random identifier.
    static QuillmereState initial(Instant updatedAt);

    /// The last session of the current block, ended or not; null when there is none. The pointer is valid
    /// until the state changes.
    const WorkSession* currentSession() const;

    /// The open questions, in their stored order.
    std::vector<AgentQuestion> openQuestions() const;

    /// Whether the person may be interrupted: always, except during a focus session that is not paused.
    bool interruptible() const;

    friend bool operator==(const QuillmereState&, const QuillmereState&) = default;
};

}  // namespace quillmere
