#include "proofs/endurance/years_of_use.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <utility>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr WorkflowEngine engine;

/// Three digits, so that all texts made with them have the same length.
unsigned threeDigits(std::uint64_t number) { return static_cast<unsigned>(100 + number % 900); }

/// One session, with a pause of two minutes, and the break after it.
void workThroughSession(QuillmereState& state, std::uint64_t number, Instant startedAt)
{
    engine.startFocus(state, samplePlan(threeDigits(number)), startedAt);
    engine.pauseFocus(state, startedAt + 600);
    engine.resumeFocus(state, startedAt + 720);
    engine.evaluateTimer(state, startedAt + 1'620);
    engine.saveReviewAndStartBreak(state, sampleReview(threeDigits(number)),
                                   samplePlan(threeDigits(number + 1)), startedAt + 1'680);
    if (state.workflowState == WorkflowState::breaking) {
        engine.endBreak(state, startedAt + 1'980);
    }
}

void askAndAnswer(QuillmereState& state, Instant now)
{
    engine.addQuestion(state, "May the nightly build be restarted?", now);
    engine.answerQuestion(state, state.agentQuestions.back().id, "Yes, after six", now + 60);
}

/// Works through one block, which moves into the history.
void workThroughBlock(QuillmereState& state, std::uint64_t number, Instant startedAt)
{
    engine.beginBlockPlanning(state, startedAt);
    Block block = Block::default_(startedAt);
    block.outcomes = sampleBlock(1).outcomes;
    block.whyValue = "The deadline is near";
    block.cycleCount = static_cast<std::int64_t>(sessionsInABlock);
    engine.startBlock(state, std::move(block), startedAt);
    for (std::uint64_t session = 0; session < sessionsInABlock; ++session) {
        workThroughSession(state, number * sessionsInABlock + session,
                           startedAt + static_cast<double>(session) * 2'100);
    }
    engine.completeBlockReview(state, sampleReflection(), startedAt + 8 * 2'100);
    askAndAnswer(state, startedAt);
    askAndAnswer(state, startedAt + 3'600);
}

}  // namespace

QuillmereState stateAfter(std::uint64_t blocks)
{
    QuillmereState state = QuillmereState::initial(moment);
    std::vector<Block> oldestFirst;
    for (std::uint64_t number = 0; number < blocks; ++number) {
        const Instant morning = moment + 86'400 * static_cast<double>(number);
        workThroughBlock(state, number, morning);
        // Collects the blocks and reverses them at the end: inserting each at the front would take quadratic
        // time.
        oldestFirst.push_back(std::move(state.blockHistory.front()));
        state.blockHistory.clear();
    }
    state.blockHistory.assign(std::make_move_iterator(oldestFirst.rbegin()),
                              std::make_move_iterator(oldestFirst.rend()));
    return state;
}

}  // namespace quillmere::test
