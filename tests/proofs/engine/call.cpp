#include "proofs/engine/call.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {

std::string_view nameOf(Operation operation)
{
    static constexpr std::array<std::string_view, operationCount> names = {
        "beginBlockPlanning",
        "startBlock",
        "scheduleBlock",
        "editScheduledBlock",
        "cancelScheduledBlock",
        "startScheduledBlockNow",
        "evaluateSchedule",
        "startFocus",
        "pauseFocus",
        "resumeFocus",
        "endFocus",
        "saveReviewAndStartBreak",
        "extendBreak",
        "endBreak",
        "skipBreak",
        "evaluateTimer",
        "completeBlockReview",
        "addQuestion",
        "answerQuestion",
    };
    return names[placeOf(operation)];
}

Call Call::of(Operation operation, Instant now)
{
    return {.operation = operation,
            .now = now,
            .block = std::nullopt,
            .plan = std::nullopt,
            .review = std::nullopt,
            .reflection = std::nullopt,
            .seconds = 0,
            .text = "",
            .question = std::nullopt};
}

bool Answer::didSomething() const
{
    return !refusal && begun.value_or(true) &&
           transition.value_or(TimerTransition::focusEnded) != TimerTransition::noChange;
}

namespace {

/// Stores the results of the two evaluating operations in `answer`.
void perform(QuillmereState& state, const Call& call, Answer& answer)
{
    constexpr WorkflowEngine engine;
    switch (call.operation) {
        using enum Operation;
        case beginBlockPlanning: return engine.beginBlockPlanning(state, call.now);
        case startBlock: return engine.startBlock(state, call.block.value(), call.now);
        case scheduleBlock: return engine.scheduleBlock(state, call.block.value(), call.now);
        case editScheduledBlock: return engine.editScheduledBlock(state, call.now);
        case cancelScheduledBlock: return engine.cancelScheduledBlock(state, call.now);
        case startScheduledBlockNow: return engine.startScheduledBlockNow(state, call.now);
        case evaluateSchedule: answer.begun = engine.evaluateSchedule(state, call.now); return;
        case startFocus: return engine.startFocus(state, call.plan, call.now);
        case pauseFocus: return engine.pauseFocus(state, call.now);
        case resumeFocus: return engine.resumeFocus(state, call.now);
        case endFocus: return engine.endFocus(state, call.now);
        case saveReviewAndStartBreak:
            return engine.saveReviewAndStartBreak(state, call.review.value(), call.plan, call.now);
        case extendBreak: return engine.extendBreak(state, call.seconds, call.now);
        case endBreak: return engine.endBreak(state, call.now);
        case skipBreak: return engine.skipBreak(state, call.now);
        case evaluateTimer: answer.transition = engine.evaluateTimer(state, call.now); return;
        case completeBlockReview: return engine.completeBlockReview(state, call.reflection.value(), call.now);
        case addQuestion: return engine.addQuestion(state, call.text, call.now);
        case answerQuestion: return engine.answerQuestion(state, call.question.value(), call.text, call.now);
    }
}

}  // namespace

Answer perform(QuillmereState& state, const Call& call)
{
    Answer answer;
    try {
        perform(state, call, answer);
    } catch (const WorkflowError& error) {
        EXPECT_EQ(error.errorDescription(), error.what());
        answer.refusal = Refusal{.reason = error.reason(), .message = error.errorDescription()};
    }
    return answer;
}

}  // namespace quillmere::test
