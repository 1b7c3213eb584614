#include "proofs/merge/walking_machine.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <string>
#include <utility>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr WorkflowEngine engine;

std::string anyText(WalkRandom& random) { return "Text " + std::to_string(random.below(1'000)); }

SessionPlan anyPlan(WalkRandom& random)
{
    SessionPlan plan = SessionPlan::blank(random.identifier());
    plan.intendedOutcome = anyText(random);
    return plan;
}

SessionReview anyReview(WalkRandom& random)
{
    return {.id = random.identifier(),
            .completion = CompletionResult::half,
            .noteworthyResult = anyText(random),
            .distractions = {},
            .improvement = {}};
}

BlockReview anyReflection(WalkRandom& random)
{
    return {.outputProduced = anyText(random),
            .normalComparison = {},
            .boggedDown = {},
            .wentWell = {},
            .lessons = {}};
}

/// The block that waits, edited, or another one.
Block anyBlock(const QuillmereState& state, WalkRandom& random, Instant now)
{
    Block block = state.currentBlock.value_or(sampleBlock(1));
    if (!state.currentBlock || random.oneIn(4)) {
        block.id = random.identifier();
        block.createdAt = now;
    }
    block.cycleCount = 1 + random.below(3);
    block.whyValue = anyText(random);
    block.plannedStart.reset();
    return block;
}

void planBlock(QuillmereState& state, WalkRandom& random, Instant now)
{
    Block block = anyBlock(state, random, now);
    if (random.oneIn(3)) {
        block.plannedStart = now + random.below(5'000);
        engine.scheduleBlock(state, std::move(block), now);
    } else {
        engine.startBlock(state, std::move(block), now);
    }
}

void goOnFromIdle(QuillmereState& state, WalkRandom& random, Instant now)
{
    if (!state.currentBlock) {
        engine.beginBlockPlanning(state, now);
    } else if (random.oneIn(2)) {
        engine.evaluateSchedule(state, now);
    } else if (random.oneIn(2)) {
        engine.editScheduledBlock(state, now);
    } else if (random.oneIn(2)) {
        engine.startScheduledBlockNow(state, now);
    } else {
        engine.cancelScheduledBlock(state, now);
    }
}

void goOnFocusing(QuillmereState& state, WalkRandom& random, Instant now)
{
    if (random.oneIn(3)) {
        engine.endFocus(state, now);
    } else if (random.oneIn(2)) {
        engine.evaluateTimer(state, now);
    } else if (state.currentSession()->pausedAt) {
        engine.resumeFocus(state, now);
    } else {
        engine.pauseFocus(state, now);
    }
}

void goOnBreaking(QuillmereState& state, WalkRandom& random, Instant now)
{
    if (random.oneIn(3)) {
        engine.extendBreak(state, 60, now);
    } else if (random.oneIn(2)) {
        engine.evaluateTimer(state, now);
    } else {
        engine.endBreak(state, now);
    }
}

void askOrAnswer(QuillmereState& state, WalkRandom& random, Instant now)
{
    if (state.agentQuestions.empty() || random.oneIn(3)) {
        engine.addQuestion(state, anyText(random), now);
        state.agentQuestions.back().id = random.identifier();
        return;
    }
    const AgentQuestion& question = state.agentQuestions[random.below(state.agentQuestions.size())];
    engine.answerQuestion(state, question.id, anyText(random), now);
}

void work(QuillmereState& state, WalkRandom& random, Instant now)
{
    switch (state.workflowState) {
        case WorkflowState::idle: goOnFromIdle(state, random, now); break;
        case WorkflowState::blockPlanning: planBlock(state, random, now); break;
        case WorkflowState::sessionPlanning:
            engine.startFocus(state, anyPlan(random), now);
            state.currentBlock->sessions.back().id = random.identifier();
            break;
        case WorkflowState::focusing: goOnFocusing(state, random, now); break;
        case WorkflowState::sessionReview:
            engine.saveReviewAndStartBreak(state, anyReview(random), anyPlan(random), now);
            break;
        case WorkflowState::breaking: goOnBreaking(state, random, now); break;
        case WorkflowState::blockReview: engine.completeBlockReview(state, anyReflection(random), now); break;
        case WorkflowState::complete: break;
    }
}

}  // namespace

Identifier WalkRandom::identifier()
{
    Identifier::Octets bytes;
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random_());
    }
    return Identifier(bytes);
}

void WalkingMachine::act(WalkRandom& random, Instant now)
{
    past_.push_back(state_);
    const Instant own = now + clockOffset_;
    if (random.oneIn(6)) {
        askOrAnswer(state_, random, own);
    } else {
        work(state_, random, own);
    }
}

void WalkingMachine::take(QuillmereState state) { past_.push_back(std::exchange(state_, std::move(state))); }

}  // namespace quillmere::test
