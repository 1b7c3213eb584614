#include "proofs/steering/random_steps.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

constexpr WorkflowEngine engine;

Block anyBlock(RandomValues& random, Instant now)
{
    Block block = Block::default_(now);
    block.cycleCount = 1 + random.below(3);
    block.plannedStart = now + static_cast<double>(random.below(1'200));
    return block;
}

Block startable(Block block)
{
    block.plannedStart.reset();
    return block;
}

/// With a question at least, answered or not.
void answerAny(QuillmereState& state, RandomValues& random, Instant now)
{
    const AgentQuestion& question = state.agentQuestions[random.below(state.agentQuestions.size())];
    engine.answerQuestion(state, question.id, random.oneIn(2) ? "Yes" : "No", now);
}

}  // namespace

void takeStep(Step step, QuillmereState& state, RandomValues& random, Instant now)
{
    switch (step) {
        case Step::beginBlockPlanning: engine.beginBlockPlanning(state, now); break;
        case Step::startBlock: engine.startBlock(state, startable(anyBlock(random, now)), now); break;
        case Step::scheduleBlock: engine.scheduleBlock(state, anyBlock(random, now), now); break;
        case Step::editScheduledBlock: engine.editScheduledBlock(state, now); break;
        case Step::cancelScheduledBlock: engine.cancelScheduledBlock(state, now); break;
        case Step::startScheduledBlockNow: engine.startScheduledBlockNow(state, now); break;
        case Step::startFocus: engine.startFocus(state, random.plan(), now); break;
        case Step::pauseFocus: engine.pauseFocus(state, now); break;
        case Step::resumeFocus: engine.resumeFocus(state, now); break;
        case Step::endFocus: engine.endFocus(state, now); break;
        case Step::saveReviewAndStartBreak:
        case Step::saveLastReview:
            engine.saveReviewAndStartBreak(state, random.review(), random.plan(), now);
            break;
        case Step::extendBreak: engine.extendBreak(state, random.length(), now); break;
        case Step::endBreak: engine.endBreak(state, now); break;
        case Step::completeBlockReview: engine.completeBlockReview(state, {}, now); break;
        case Step::addQuestion: engine.addQuestion(state, "May I?", now); break;
        case Step::answerQuestion: answerAny(state, random, now); break;
        case Step::evaluateSchedule:
        case Step::announceBreakEnd: break;
    }
}

}  // namespace quillmere::test
