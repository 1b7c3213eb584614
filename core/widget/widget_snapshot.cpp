#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>
#include <iterator>

namespace quillmere {
namespace {

/// The plan whose texts are shown: of the session that runs or is reviewed, or of the next one.
const SessionPlan* displayedPlan(const QuillmereState& state)
{
    switch (state.workflowState) {
        case WorkflowState::focusing:
        case WorkflowState::sessionReview: {
            const WorkSession* session = state.currentSession();
            return session ? &session->plan : nullptr;
        }
        case WorkflowState::sessionPlanning:
        case WorkflowState::breaking: return state.plannedNextSession ? &*state.plannedNextSession : nullptr;
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::blockReview:
        case WorkflowState::complete: break;
    }
    return nullptr;
}

/// The line to show: of the plan, of the outcome that the plan serves, or of the first outcome with a title.
std::string outcomeTitle(const QuillmereState& state, const SessionPlan* plan)
{
    if (plan && !plan->intendedOutcome.empty()) {
        return plan->intendedOutcome;
    }
    if (!state.currentBlock) {
        return {};
    }
    const Outcome* const served = plan ? state.currentBlock->outcomeServed(*plan) : nullptr;
    if (served && !served->title.empty()) {
        return served->title;
    }
    const std::vector<Outcome>& outcomes = state.currentBlock->outcomes;
    const auto titled = std::find_if(outcomes.begin(), outcomes.end(),
                                     [](const Outcome& outcome) { return !outcome.title.empty(); });
    return titled == outcomes.end() ? std::string() : titled->title;
}

/// When the timer began, moved on by the pauses. The state has the timer, so it has its start as well.
Instant timerStart(const QuillmereState& state, TimerKind kind)
{
    switch (kind) {
        case TimerKind::breakTime: return *state.breakStartedAt;
        case TimerKind::focus: break;
    }
    const WorkSession& session = *state.currentSession();
    return session.startedAt + session.accumulatedPausedSeconds;
}

std::optional<WidgetCountdown> countdown(const QuillmereState& state, Instant now)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    if (!timer) {
        return std::nullopt;
    }
    return WidgetCountdown{
        .endsAt = now + static_cast<double>(timer->remainingSeconds),
        .startedAt = timerStart(state, timer->kind),
        .isPaused = timer->isPaused,
        .frozenRemainingSeconds = timer->remainingSeconds,
    };
}

/// Counts the open questions and copies the texts of the first ones.
void setOpenQuestions(WidgetSnapshot& snapshot, const std::vector<AgentQuestion>& questions)
{
    for (const AgentQuestion& question : questions) {
        if (!question.isOpen()) {
            continue;
        }
        if (snapshot.openQuestionCount < WidgetSnapshot::maxOpenQuestions) {
            snapshot.openQuestions.push_back(question.question);
        }
        ++snapshot.openQuestionCount;
    }
}

}  // namespace

WidgetSnapshot WidgetSnapshot::make(const QuillmereState& from, Instant at)
{
    const auto& block = from.currentBlock;
    const WorkSession* session = from.currentSession();
    const bool isFocusing = from.workflowState == WorkflowState::focusing;
    const SessionPlan* plan = displayedPlan(from);
    WidgetSnapshot snapshot{
        .schemaVersion = currentSchemaVersion,
        .phase = fromWorkflowState<WidgetPhase>(from.workflowState),
        .route = fromWorkflowState<WidgetRoute>(from.workflowState),
        .intendedOutcome = outcomeTitle(from, plan),
        .firstAction = plan ? plan->firstAction : std::string(),
        .sessionsStarted = block ? std::ssize(block->sessions) : 0,
        .sessionsPlanned = block ? block->cycleCount : 0,
        .currentSessionNumber = isFocusing && session ? std::optional(session->number) : std::nullopt,
        .countdown = quillmere::countdown(from, at),
        .energy = plan ? std::optional(plan->energy) : std::nullopt,
        .morale = plan ? std::optional(plan->morale) : std::nullopt,
        .openQuestionCount = 0,
        .openQuestions = {},
        .updatedAt = at,
    };
    setOpenQuestions(snapshot, from.agentQuestions);
    return snapshot;
}

WidgetSnapshot WidgetSnapshot::placeholder(Instant now)
{
    return {
        .schemaVersion = currentSchemaVersion,
        .phase = WidgetPhase::focusing,
        .route = WidgetRoute::focus,
        .intendedOutcome = "Draft the widget acceptance notes",
        .firstAction = "Open the pull request template",
        .sessionsStarted = 3,
        .sessionsPlanned = 8,
        .currentSessionNumber = 3,
        .countdown =
            WidgetCountdown{
                .endsAt = now + 1020,
                .startedAt = now - 480,
                .isPaused = false,
                .frozenRemainingSeconds = 1020,
            },
        .energy = 4,
        .morale = 4,
        .openQuestionCount = 1,
        .openQuestions = {"Which signing identity should the release use?"},
        .updatedAt = now,
    };
}

WidgetSnapshot WidgetSnapshot::empty(Instant now)
{
    return {
        .schemaVersion = currentSchemaVersion,
        .phase = WidgetPhase::idle,
        .route = WidgetRoute::idle,
        .intendedOutcome = {},
        .firstAction = {},
        .sessionsStarted = 0,
        .sessionsPlanned = 0,
        .currentSessionNumber = std::nullopt,
        .countdown = std::nullopt,
        .energy = std::nullopt,
        .morale = std::nullopt,
        .openQuestionCount = 0,
        .openQuestions = {},
        .updatedAt = now,
    };
}

}  // namespace quillmere
