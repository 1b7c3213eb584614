#include "proofs/engine/random_calls.hpp"

#include <span>

#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// The usual next operations in a workflow state.
std::span<const Operation> sensible(WorkflowState workflowState)
{
    using enum Operation;
    static constexpr auto inIdle =
        std::to_array({beginBlockPlanning, beginBlockPlanning, evaluateSchedule, editScheduledBlock,
                       startScheduledBlockNow, cancelScheduledBlock});
    static constexpr auto inBlockPlanning = std::to_array({startBlock, scheduleBlock});
    static constexpr auto inSessionPlanning = std::to_array({startFocus});
    static constexpr auto inFocusing =
        std::to_array({pauseFocus, resumeFocus, endFocus, evaluateTimer, evaluateTimer});
    static constexpr auto inSessionReview = std::to_array({saveReviewAndStartBreak});
    static constexpr auto inBreaking =
        std::to_array({extendBreak, endBreak, skipBreak, evaluateTimer, evaluateTimer});
    static constexpr auto inBlockReview = std::to_array({completeBlockReview});
    static constexpr auto always = std::to_array({addQuestion, answerQuestion});
    switch (workflowState) {
        case WorkflowState::idle: return inIdle;
        case WorkflowState::blockPlanning: return inBlockPlanning;
        case WorkflowState::sessionPlanning: return inSessionPlanning;
        case WorkflowState::focusing: return inFocusing;
        case WorkflowState::sessionReview: return inSessionReview;
        case WorkflowState::breaking: return inBreaking;
        case WorkflowState::blockReview: return inBlockReview;
        case WorkflowState::complete: return always;
    }
    return always;
}

}  // namespace

void RandomCalls::moveTheClock()
{
    static constexpr auto steps =
        std::to_array<double>({0, 0.3, 0.3, 1, 1, 1, 60, 60, 300, 1'500, 10'000, -0.3, -1, -10'000});
    now_ = now_ + oneOf(steps);
}

Operation RandomCalls::operation(WorkflowState workflowState)
{
    // Questions are rare, because they are never refused and would accumulate.
    if (below(3) != 0) {
        const std::span<const Operation> choices = sensible(workflowState);
        return choices[below(static_cast<std::uint32_t>(choices.size()))];
    }
    const Operation drawn = operationAt(below(operationCount));
    return drawn == Operation::addQuestion && below(4) != 0 ? Operation::answerQuestion : drawn;
}

double RandomCalls::duration()
{
    static constexpr auto unusual = std::to_array<double>({0, -1, notANumber, infinity, smallest});
    static constexpr auto usual = std::to_array<double>({1'500, 300, 60, 1, 0.5, 59.7});
    return oneIn(12) ? oneOf(unusual) : oneOf(usual);
}

SessionPlan RandomCalls::plan()
{
    static constexpr auto ratings = std::to_array<std::int64_t>({0, 1, 5, 6});
    SessionPlan plan = samplePlan(below(50));
    if (oneIn(6)) {
        plan.energy = oneOf(ratings);
        plan.morale = oneOf(ratings);
    }
    return plan;
}

std::optional<SessionPlan> RandomCalls::maybePlan()
{
    return oneIn(4) ? std::nullopt : std::optional(plan());
}

Block RandomCalls::block(const QuillmereState& state)
{
    // Planning usually continues from the scheduled block, if there is one.
    Block block = state.currentBlock && !oneIn(4) ? *state.currentBlock : sampleBlock(below(50));
    block.sessions.clear();
    block.scheduledStartTriggeredAt.reset();
    block.createdAt = now_;
    block.focusDurationSeconds = duration();
    block.breakDurationSeconds = duration();
    block.cycleCount = static_cast<std::int64_t>(below(12) == 0 ? 0 : below(4) + 1);
    static constexpr auto ahead = std::to_array<double>({-60, 0, 0.5, 60, 1'500});
    block.plannedStart = oneIn(3) ? std::nullopt : std::optional(now_ + oneOf(ahead));
    return block;
}

Identifier RandomCalls::question(const QuillmereState& state)
{
    if (state.agentQuestions.empty() || oneIn(5)) {
        return identifier(below(1'000));
    }
    return state.agentQuestions[below(static_cast<std::uint32_t>(state.agentQuestions.size()))].id;
}

Call RandomCalls::next(const QuillmereState& state)
{
    moveTheClock();
    Call call = Call::of(operation(state.workflowState), now_);
    switch (call.operation) {
        using enum Operation;
        case startBlock:
        case scheduleBlock: call.block = block(state); break;
        case startFocus: call.plan = maybePlan(); break;
        case saveReviewAndStartBreak:
            call.review = sampleReview(below(50));
            call.plan = maybePlan();
            break;
        case extendBreak: call.seconds = duration(); break;
        case completeBlockReview: call.reflection = sampleReflection(); break;
        case addQuestion: call.text = oneIn(5) ? "" : "Is it done?"; break;
        case answerQuestion:
            call.question = question(state);
            call.text = oneIn(5) ? "" : "Soon";
            break;
        default: break;
    }
    return call;
}

}  // namespace quillmere::test
