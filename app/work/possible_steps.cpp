#include "work/possible_steps.hpp"

#include <iterator>

namespace quillmere::work {
namespace {

/// What a state must have for a step besides being in the right place of the workflow.
struct Condition {
    Step step;
    bool (*holds)(const QuillmereState&);
};

bool isScheduled(const QuillmereState& state)
{
    return state.currentBlock && state.currentBlock->plannedStart;
}
bool isFree(const QuillmereState& state) { return !state.currentBlock; }
bool isRunning(const QuillmereState& state) { return !state.interruptible(); }
bool isPaused(const QuillmereState& state) { return state.interruptible(); }
bool cyclesRemain(const QuillmereState& state)
{
    return !state.currentBlock || std::ssize(state.currentBlock->sessions) < state.currentBlock->cycleCount;
}
bool isLastCycle(const QuillmereState& state) { return !cyclesRemain(state); }

constexpr auto conditions = std::to_array<Condition>({
    {Step::beginBlockPlanning, isFree},
    {Step::startScheduledBlockNow, isScheduled},
    {Step::editScheduledBlock, isScheduled},
    {Step::cancelScheduledBlock, isScheduled},
    {Step::pauseFocus, isRunning},
    {Step::resumeFocus, isPaused},
    {Step::saveReviewAndStartBreak, cyclesRemain},
    {Step::saveLastReview, isLastCycle},
});

}  // namespace

bool isPossible(Step step, const QuillmereState& state)
{
    const auto accepted = transition(step).accepts;
    if (accepted && *accepted != state.workflowState) {
        return false;
    }
    for (const Condition& condition : conditions) {
        if (condition.step == step) {
            return condition.holds(state);
        }
    }
    return true;
}

}  // namespace quillmere::work
