#include "proofs/engine/refusals.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowError::Case;
using enum WorkflowState;

using Verdict = std::optional<WorkflowError::Case>;

bool isRating(std::int64_t value)
{
    return value == 1 || value == 2 || value == 3 || value == 4 || value == 5;
}

bool hasRatings(const SessionPlan& plan) { return isRating(plan.energy) && isRating(plan.morale); }

bool hasDurations(const Block& block)
{
    return block.focusDurationSeconds > 0 && block.breakDurationSeconds > 0 && block.cycleCount > 0;
}

bool hasSession(const QuillmereState& state)
{
    return state.currentBlock && !state.currentBlock->sessions.empty();
}

bool isPaused(const QuillmereState& state)
{
    return state.currentBlock->sessions.back().pausedAt.has_value();
}

bool knowsQuestion(const QuillmereState& state, const Identifier& id)
{
    for (const AgentQuestion& question : state.agentQuestions) {
        if (question.id == id) {
            return true;
        }
    }
    return false;
}

Verdict focusVerdict(const QuillmereState& state, const Call& call)
{
    if (state.workflowState != sessionPlanning || !state.currentBlock ||
        !hasCyclesLeft(*state.currentBlock)) {
        return invalidTransition;
    }
    const std::optional<SessionPlan>& plan = chosenPlan(state, call);
    if (!plan) {
        return missingSessionPlan;
    }
    return hasRatings(*plan) ? Verdict() : ratingOutOfRange;
}

Verdict reviewVerdict(const QuillmereState& state, const Call& call)
{
    if (state.workflowState != sessionReview || !hasSession(state)) {
        return invalidTransition;
    }
    if (!call.plan) {
        return hasCyclesLeft(*state.currentBlock) ? nextSessionPlanRequired : Verdict();
    }
    return hasRatings(*call.plan) ? Verdict() : ratingOutOfRange;
}

Verdict blockVerdict(const QuillmereState& state, const Call& call)
{
    if (state.workflowState != blockPlanning) {
        return invalidTransition;
    }
    if (call.operation == Operation::scheduleBlock && !call.block->plannedStart) {
        return invalidTransition;
    }
    return hasDurations(*call.block) ? Verdict() : invalidDuration;
}

Verdict availableIf(bool isAvailable) { return isAvailable ? Verdict() : invalidTransition; }

}  // namespace

bool waits(const QuillmereState& state)
{
    return state.workflowState == idle && state.currentBlock && state.currentBlock->plannedStart;
}

bool hasCyclesLeft(const Block& block)
{
    return static_cast<std::int64_t>(block.sessions.size()) < block.cycleCount;
}

const std::optional<SessionPlan>& chosenPlan(const QuillmereState& state, const Call& call)
{
    return call.plan ? call.plan : state.plannedNextSession;
}

std::optional<WorkflowError::Case> refusalOf(const QuillmereState& state, const Call& call)
{
    switch (call.operation) {
        using enum Operation;
        case beginBlockPlanning: return availableIf(state.workflowState == idle && !state.currentBlock);
        case startBlock:
        case scheduleBlock: return blockVerdict(state, call);
        case editScheduledBlock:
        case cancelScheduledBlock:
        case startScheduledBlockNow: return availableIf(waits(state));
        case startFocus: return focusVerdict(state, call);
        case pauseFocus:
            return availableIf(state.workflowState == focusing && hasSession(state) && !isPaused(state));
        case resumeFocus:
            return availableIf(state.workflowState == focusing && hasSession(state) && isPaused(state));
        case endFocus: return availableIf(state.workflowState == focusing && hasSession(state));
        case saveReviewAndStartBreak: return reviewVerdict(state, call);
        case extendBreak: return availableIf(state.workflowState == breaking && call.seconds > 0);
        case endBreak:
        case skipBreak: return availableIf(state.workflowState == breaking);
        case completeBlockReview:
            return availableIf(state.workflowState == blockReview && state.currentBlock.has_value());
        case answerQuestion: return availableIf(knowsQuestion(state, call.question.value()));
        case evaluateSchedule:
        case evaluateTimer:
        case addQuestion: return {};
    }
    return {};
}

}  // namespace quillmere::test
