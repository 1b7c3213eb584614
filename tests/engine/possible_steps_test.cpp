// `isPossible` compared with the operations: a step is possible exactly when its operation, called with valid
// arguments, performs it.
#include <quillmere/engine/workflow_engine.hpp>

#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

/// After the end of every timer.
constexpr Instant late = moment + 100'000;

struct Schedule {
    std::optional<Instant> plannedStart;
    std::optional<Instant> triggeredAt;
};

const std::vector<Schedule> schedules = {{}, {moment, {}}, {moment, moment}, {{}, moment}};

/// The progress of the last session.
struct Progress {
    std::int64_t sessions;
    bool isPaused;
    bool isEnded;
};

/// For a block with three cycles.
constexpr auto progresses = std::to_array<Progress>({
    {0, false, false},
    {1, false, false},
    {1, true, false},
    {2, false, true},
    {3, false, false},
    {3, true, true},
    {4, false, true},
});

std::vector<std::optional<Block>> blocks()
{
    std::vector<std::optional<Block>> all = {std::nullopt};
    for (const Schedule& schedule : schedules) {
        for (const Progress& progress : progresses) {
            Block block = blockInWork(1, progress.sessions);
            block.plannedStart = schedule.plannedStart;
            block.scheduledStartTriggeredAt = schedule.triggeredAt;
            if (progress.isPaused) {
                block.sessions.back().pausedAt = late;
            }
            if (progress.isEnded) {
                block.sessions.back().endedAt = late;
            }
            all.push_back(std::move(block));
        }
    }
    return all;
}

/// Every workflow state, and an invalid value.
std::vector<WorkflowState> workflowStates()
{
    const auto cases = allCases<WorkflowState>();
    std::vector<WorkflowState> all(cases.begin(), cases.end());
    all.push_back(static_cast<WorkflowState>(all.size()));
    return all;
}

struct Break {
    std::optional<Instant> startedAt;
    std::optional<Instant> notifiedAt;
};

const std::vector<Break> breaks = {{}, {moment, {}}, {moment, moment}, {{}, moment}};

/// Calls `check(state)` for every combination of the parts that a guard may look at.
template <class Check>
void forEverySituation(Check check)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    const std::vector<AgentQuestion> questions = fullState().agentQuestions;
    for (const std::optional<Block>& block : blocks()) {
        state.currentBlock = block;
        for (const Break& rest : breaks) {
            state.breakStartedAt = rest.startedAt;
            state.breakEndNotifiedAt = rest.notifiedAt;
            for (const bool hasQuestions : {false, true}) {
                state.agentQuestions = hasQuestions ? questions : std::vector<AgentQuestion>();
                for (const WorkflowState workflowState : workflowStates()) {
                    state.workflowState = workflowState;
                    check(state);
                }
            }
        }
    }
}

/// Calls the operation of a step with arguments that it accepts; returns whether it reports that it did
/// something.
bool call(Step step, QuillmereState& state)
{
    const SessionPlan plan = samplePlan(2);
    Block block = sampleBlock(2);
    block.plannedStart = late;
    switch (step) {
        case Step::beginBlockPlanning: engine.beginBlockPlanning(state, late); break;
        case Step::startBlock: engine.startBlock(state, block, late); break;
        case Step::scheduleBlock: engine.scheduleBlock(state, block, late); break;
        case Step::editScheduledBlock: engine.editScheduledBlock(state, late); break;
        case Step::cancelScheduledBlock: engine.cancelScheduledBlock(state, late); break;
        case Step::startScheduledBlockNow: engine.startScheduledBlockNow(state, late); break;
        case Step::evaluateSchedule: return engine.evaluateSchedule(state, late);
        case Step::startFocus: engine.startFocus(state, plan, late); break;
        case Step::pauseFocus: engine.pauseFocus(state, late); break;
        case Step::resumeFocus: engine.resumeFocus(state, late); break;
        case Step::endFocus: engine.endFocus(state, late); break;
        case Step::saveReviewAndStartBreak:
        case Step::saveLastReview: engine.saveReviewAndStartBreak(state, sampleReview(2), plan, late); break;
        case Step::announceBreakEnd: return engine.evaluateTimer(state, late) == TimerTransition::breakEnded;
        case Step::extendBreak: engine.extendBreak(state, 60, late); break;
        case Step::endBreak: engine.endBreak(state, late); break;
        case Step::completeBlockReview: engine.completeBlockReview(state, sampleReflection(), late); break;
        case Step::addQuestion: engine.addQuestion(state, "Which build fails?", late); break;
        case Step::answerQuestion: engine.answerQuestion(state, identifier(602), "Yes", late); break;
    }
    return true;
}

bool isEvaluation(Step step) { return step == Step::evaluateSchedule || step == Step::announceBreakEnd; }

/// Whether the workflow state is that of the step's row.
bool hasArrived(Step step, const QuillmereState& before, const QuillmereState& after)
{
    return after.workflowState == transition(step).result.value_or(before.workflowState);
}

/// Whether another step of the same operation is possible, so that the operation does not refuse.
bool isOtherStepPossible(const Transition& row, const QuillmereState& state)
{
    for (const Transition& other : transition_table::rows) {
        if (other.value != row.value && other.operation == row.operation && isPossible(other.value, state)) {
            return true;
        }
    }
    return false;
}

TEST(IsPossible, isTrueExactlyWhereTheOperationTakesTheStep)
{
    std::map<Step, std::size_t> taken;
    forEverySituation([&](const QuillmereState& before) {
        for (const Transition& row : transition_table::rows) {
            if (isOtherStepPossible(row, before) || HasFailure()) {
                continue;
            }
            SCOPED_TRACE(std::string(row.operation) + " in state " +
                         std::to_string(static_cast<int>(before.workflowState)));
            const bool wasPossible = isPossible(row.value, before);
            QuillmereState after = before;
            bool didSomething = false;
            const auto refusal = refusalOf([&] { didSomething = call(row.value, after); });
            EXPECT_EQ(didSomething, wasPossible);
            if (wasPossible) {
                EXPECT_TRUE(hasArrived(row.value, before, after));
                EXPECT_EQ(after.updatedAt, late);
                ++taken[row.value];
            } else if (isEvaluation(row.value)) {
                EXPECT_EQ(refusal, std::nullopt);
            } else {
                EXPECT_EQ(refusal, WorkflowError::invalidTransition);
                EXPECT_TRUE(isExactly(after, before));
            }
        }
    });
    EXPECT_EQ(taken.size(), transition_table::rows.size()) << "a step was never possible";
}

TEST(IsPossible, isTrueForOneStepOfAnOperationAtMost)
{
    forEverySituation([](const QuillmereState& state) {
        for (const Transition& row : transition_table::rows) {
            if (isPossible(row.value, state)) {
                EXPECT_FALSE(isOtherStepPossible(row, state)) << row.operation;
            }
        }
    });
}

TEST(IsPossible, isFalseForStartFocusWhenNoCycleIsLeft)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    EXPECT_TRUE(isPossible(Step::startFocus, state));
    state.currentBlock->cycleCount = 0;
    EXPECT_FALSE(isPossible(Step::startFocus, state));
    state.currentBlock.reset();
    EXPECT_FALSE(isPossible(Step::startFocus, state));
}

TEST(WorkflowEngine, hasNoData)
{
    EXPECT_TRUE(std::is_empty_v<WorkflowEngine>);
    EXPECT_TRUE(std::is_trivial_v<WorkflowEngine>);
}

}  // namespace
}  // namespace quillmere::test
