// The summary of the current work for an outside agent.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere {

/// One row of the agent's list of tasks: a session of the current block, or the planned next one.
struct AgentTaskSnapshot {
    Identifier id;      ///< of the session's plan, not of the session
    std::string title;  ///< the plan's intended outcome
    std::string firstAction;
    std::string status;  ///< "planned", "current", "review_draft" or "reviewed"

    friend bool operator==(const AgentTaskSnapshot&, const AgentTaskSnapshot&) = default;
};

/// The agent's summary of a state at one instant. All its keys are always written, absent values as null, so
/// that an agent finds every key.
struct AgentSnapshot {
    std::int64_t schemaVersion;            ///< of the format of the summary: 1
    std::string workflowState;             ///< the raw value of the workflow state
    bool interruptible;                    ///< whether the person may be interrupted
    std::optional<Block> block;            ///< the current one
    std::vector<Outcome> outcomes;         ///< of the current block
    std::vector<AgentTaskSnapshot> tasks;  ///< one for each session of the block, then the planned next one
    std::vector<WorkSession> sessions;     ///< of the current block
    std::optional<WorkSession> currentSession;
    std::optional<SessionPlan> nextSession;
    std::optional<std::int64_t> remainingSeconds;  ///< at `updatedAt`; negative in overtime
    std::vector<AgentQuestion> openQuestions;
    Instant updatedAt;  ///< the moment that the summary describes

    friend bool operator==(const AgentSnapshot&, const AgentSnapshot&) = default;
};

}  // namespace quillmere
