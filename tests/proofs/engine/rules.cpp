#include "proofs/engine/rules.hpp"

#include <utility>

#include "proofs/engine/refusals.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

const char* sentence(WorkflowError::Case reason)
{
    switch (reason) {
        using enum WorkflowError::Case;
        case invalidTransition: return "This action is not available in the current workflow state.";
        case missingBlock: return "Start or schedule a block before this action.";
        case missingSessionPlan: return "Save a session plan before focus starts.";
        case nextSessionPlanRequired: return "Save the next session plan before the break starts.";
        case ratingOutOfRange: return "Energy and Morale must each be from 1 through 5.";
        case invalidDuration: return "Durations and the cycle count must be greater than zero.";
    }
    return "";
}

void forgetBreak(QuillmereState& state)
{
    state.breakStartedAt = std::nullopt;
    state.breakExtensionSeconds = 0;
    state.breakEndNotifiedAt = std::nullopt;
}

/// Adds the duration of the pause; a pause that seems to end before its start adds nothing.
void closePause(WorkSession& session, Instant now)
{
    const double lasted = now - session.pausedAt.value();
    if (lasted > 0) {
        session.accumulatedPausedSeconds = session.accumulatedPausedSeconds + lasted;
    }
    session.pausedAt = std::nullopt;
}

void closeSession(QuillmereState& state, Instant now)
{
    WorkSession& session = state.currentBlock->sessions.back();
    if (session.pausedAt) {
        closePause(session, now);
    }
    session.endedAt = now;
    state.workflowState = sessionReview;
}

void openSession(QuillmereState& state, const Call& call)
{
    Block& block = *state.currentBlock;
    const Identifier placeholder{Identifier::Octets{}};
    block.sessions.push_back({.id = placeholder,
                              .number = static_cast<std::int64_t>(block.sessions.size()) + 1,
                              .plan = chosenPlan(state, call).value(),
                              .startedAt = call.now,
                              .plannedDurationSeconds = block.focusDurationSeconds,
                              .pausedAt = std::nullopt,
                              .accumulatedPausedSeconds = 0,
                              .endedAt = std::nullopt,
                              .review = std::nullopt});
    state.plannedNextSession = std::nullopt;
    state.workflowState = focusing;
}

void keepReview(QuillmereState& state, const Call& call)
{
    const bool goesOn = hasCyclesLeft(*state.currentBlock);
    state.currentBlock->sessions.back().review = call.review;
    forgetBreak(state);
    state.plannedNextSession = goesOn ? call.plan : std::nullopt;
    state.breakStartedAt = goesOn ? std::optional(call.now) : std::nullopt;
    state.workflowState = goesOn ? breaking : blockReview;
}

void archive(QuillmereState& state, const Call& call)
{
    Block finished = *state.currentBlock;
    finished.reflection = call.reflection;
    finished.completedAt = call.now;
    std::vector<Block> history{std::move(finished)};
    history.insert(history.end(), state.blockHistory.begin(), state.blockHistory.end());
    state.blockHistory = std::move(history);
    state.currentBlock = std::nullopt;
    state.plannedNextSession = std::nullopt;
    forgetBreak(state);
    state.workflowState = idle;
}

void answerFirst(QuillmereState& state, const Call& call)
{
    for (AgentQuestion& question : state.agentQuestions) {
        if (question.id == call.question.value()) {
            question.answer = call.text;
            question.answeredAt = call.now;
            return;
        }
    }
}

/// The operations that either refuse or act: all but the two evaluations.
void act(QuillmereState& state, const Call& call)
{
    switch (call.operation) {
        using enum Operation;
        case beginBlockPlanning:
        case editScheduledBlock: state.workflowState = blockPlanning; break;
        case startBlock:
            state.currentBlock = call.block;
            state.plannedNextSession = std::nullopt;
            state.workflowState = sessionPlanning;
            break;
        case scheduleBlock:
            state.currentBlock = call.block;
            state.workflowState = idle;
            break;
        case cancelScheduledBlock:
            state.currentBlock = std::nullopt;
            state.plannedNextSession = std::nullopt;
            break;
        case startScheduledBlockNow:
            state.currentBlock->plannedStart = std::nullopt;
            state.currentBlock->scheduledStartTriggeredAt = call.now;
            state.plannedNextSession = std::nullopt;
            state.workflowState = sessionPlanning;
            break;
        case startFocus: openSession(state, call); break;
        case pauseFocus: state.currentBlock->sessions.back().pausedAt = call.now; break;
        case resumeFocus: closePause(state.currentBlock->sessions.back(), call.now); break;
        case endFocus: closeSession(state, call.now); break;
        case saveReviewAndStartBreak: keepReview(state, call); break;
        case extendBreak:
            state.breakExtensionSeconds = state.breakExtensionSeconds + call.seconds;
            state.breakEndNotifiedAt = std::nullopt;
            break;
        case endBreak:
        case skipBreak:
            forgetBreak(state);
            state.workflowState = sessionPlanning;
            break;
        case completeBlockReview: archive(state, call); break;
        case addQuestion:
            state.agentQuestions.push_back({.id = Identifier(Identifier::Octets{}),
                                            .question = call.text,
                                            .createdAt = call.now,
                                            .answer = std::nullopt,
                                            .answeredAt = std::nullopt});
            break;
        case answerQuestion: answerFirst(state, call); break;
        case evaluateSchedule:
        case evaluateTimer: break;
    }
    state.updatedAt = call.now;
}

void evaluateSchedule(ExpectedOutcome& expected, Instant now)
{
    QuillmereState& state = expected.after;
    const bool isDue = waits(state) && *state.currentBlock->plannedStart <= now &&
                       !state.currentBlock->scheduledStartTriggeredAt;
    expected.answer.begun = isDue;
    if (isDue) {
        state.currentBlock->scheduledStartTriggeredAt = now;
        state.workflowState = sessionPlanning;
        state.updatedAt = now;
    }
}

void evaluateTimer(ExpectedOutcome& expected, Instant now)
{
    QuillmereState& state = expected.after;
    expected.answer.transition = TimerTransition::noChange;
    const std::optional<Reading> clock = reading(state, now);
    if (!clock) {
        return;
    }
    if (clock->isFatal) {
        expected.isFatal = true;
        return;
    }
    if (clock->left >= 1) {
        return;
    }
    if (clock->ofFocus) {
        closeSession(state, now);
        state.updatedAt = now;
        expected.answer.transition = TimerTransition::focusEnded;
    } else if (!state.breakEndNotifiedAt) {
        state.breakEndNotifiedAt = now;
        state.updatedAt = now;
        expected.answer.transition = TimerTransition::breakEnded;
    }
}

ExpectedOutcome::Drawn drawnBy(Operation operation)
{
    if (operation == Operation::startFocus) {
        return ExpectedOutcome::Drawn::session;
    }
    return operation == Operation::addQuestion ? ExpectedOutcome::Drawn::question
                                               : ExpectedOutcome::Drawn::nothing;
}

}  // namespace

ExpectedOutcome expectedOutcome(const QuillmereState& before, const Call& call)
{
    ExpectedOutcome result{
        .isFatal = false, .answer = {}, .after = before, .drawn = ExpectedOutcome::Drawn::nothing};
    if (call.operation == Operation::evaluateSchedule) {
        evaluateSchedule(result, call.now);
    } else if (call.operation == Operation::evaluateTimer) {
        evaluateTimer(result, call.now);
    } else if (const auto reason = refusalOf(before, call)) {
        result.answer.refusal = Refusal{.reason = *reason, .message = sentence(*reason)};
    } else {
        act(result.after, call);
        result.drawn = drawnBy(call.operation);
    }
    return result;
}

}  // namespace quillmere::test
