// Builds the agent's summary.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <string_view>

namespace quillmere {
namespace {

constexpr std::int64_t agentSchemaVersion = 1;

AgentTaskSnapshot task(const SessionPlan& plan, std::string_view status)
{
    return {
        .id = plan.id,
        .title = plan.intendedOutcome,
        .firstAction = plan.firstAction,
        .status = std::string(status),
    };
}

/// Depends only on the review, except for the session whose review is still being written.
std::string_view status(const WorkSession& session, bool isCurrent, WorkflowState workflowState)
{
    if (!session.review) {
        return "current";
    }
    return isCurrent && workflowState == WorkflowState::sessionReview ? "review_draft" : "reviewed";
}

std::vector<AgentTaskSnapshot> tasks(const QuillmereState& state)
{
    std::vector<AgentTaskSnapshot> rows;
    if (state.currentBlock) {
        const WorkSession* current = state.currentSession();
        for (const WorkSession& session : state.currentBlock->sessions) {
            const bool isCurrent = session.id == current->id;
            rows.push_back(task(session.plan, status(session, isCurrent, state.workflowState)));
        }
    }
    if (const auto& planned = state.plannedNextSession) {
        const bool listed = std::any_of(rows.begin(), rows.end(),
                                        [&](const AgentTaskSnapshot& row) { return row.id == planned->id; });
        if (!listed) {
            rows.push_back(task(*planned, "planned"));
        }
    }
    return rows;
}

}  // namespace

AgentSnapshot StateStore::agentSnapshot(const QuillmereState& state, std::optional<Instant> at) const
{
    const Instant moment = at.value_or(state.updatedAt);
    const auto& block = state.currentBlock;
    const WorkSession* session = state.currentSession();
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, moment);
    return {
        .schemaVersion = agentSchemaVersion,
        .workflowState = std::string(rawValue(state.workflowState)),
        .interruptible = state.interruptible(),
        .block = block,
        .outcomes = block ? block->outcomes : std::vector<Outcome>(),
        .tasks = tasks(state),
        .sessions = block ? block->sessions : std::vector<WorkSession>(),
        .currentSession = session ? std::optional(*session) : std::nullopt,
        .nextSession = state.plannedNextSession,
        .remainingSeconds = timer ? std::optional(timer->remainingSeconds) : std::nullopt,
        .openQuestions = state.openQuestions(),
        .updatedAt = moment,
    };
}

}  // namespace quillmere
