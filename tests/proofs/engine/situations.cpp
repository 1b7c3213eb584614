#include "proofs/engine/situations.hpp"

#include "proofs/engine/digits.hpp"
#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr double lowest = -0x1p63;  // The lowest representable number of whole seconds.

constexpr auto workflowStates = std::to_array<WorkflowState>({
    WorkflowState::idle,
    WorkflowState::blockPlanning,
    WorkflowState::sessionPlanning,
    WorkflowState::focusing,
    WorkflowState::sessionReview,
    WorkflowState::breaking,
    WorkflowState::blockReview,
    WorkflowState::complete,
});

/// Times of the clock, relative to the instant in the records. 1500 ends a session, 300 a break.
constexpr auto clockSteps =
    std::to_array<double>({0, 0.3, 1, 300, 1'500, 10'000, -0.3, -10'000, notANumber, infinity});

/// The planned start of a waiting block, relative to the clock.
struct Waiting {
    bool isScheduled;
    double untilStart;
    bool wasBegun;
};
constexpr auto blockShapes = std::to_array<Waiting>({
    {.isScheduled = false, .untilStart = 0, .wasBegun = false},
    {.isScheduled = true, .untilStart = -3'600, .wasBegun = false},
    {.isScheduled = true, .untilStart = 0, .wasBegun = false},
    {.isScheduled = true, .untilStart = 0.5, .wasBegun = false},
    {.isScheduled = true, .untilStart = -3'600, .wasBegun = true},
    {.isScheduled = false, .untilStart = 0, .wasBegun = true},
});

/// The number of sessions (of three), and the progress of the last one.
struct Progress {
    std::int64_t sessions;
    std::optional<double> pausedAfter;
    bool isEnded;
    bool isReviewed;
};
constexpr auto sessionShapes = std::to_array<Progress>({
    {.sessions = 0, .pausedAfter = {}, .isEnded = false, .isReviewed = false},
    {.sessions = 1, .pausedAfter = {}, .isEnded = false, .isReviewed = false},
    {.sessions = 1, .pausedAfter = 0.0, .isEnded = false, .isReviewed = false},
    {.sessions = 2, .pausedAfter = {}, .isEnded = true, .isReviewed = false},
    {.sessions = 1, .pausedAfter = {}, .isEnded = true, .isReviewed = true},
    {.sessions = 3, .pausedAfter = {}, .isEnded = false, .isReviewed = false},
    {.sessions = 3, .pausedAfter = 1'600.0, .isEnded = false, .isReviewed = false},
    {.sessions = 3, .pausedAfter = {}, .isEnded = true, .isReviewed = false},
    {.sessions = 3, .pausedAfter = {}, .isEnded = true, .isReviewed = true},
    {.sessions = 4, .pausedAfter = {}, .isEnded = true, .isReviewed = false},
});

struct Rest {
    bool isStarted;
    double extension;
    bool isNotified;
};
constexpr auto breakShapes = std::to_array<Rest>({
    {.isStarted = false, .extension = 0, .isNotified = false},
    {.isStarted = true, .extension = 0, .isNotified = false},
    {.isStarted = true, .extension = 60.5, .isNotified = false},
    {.isStarted = true, .extension = 0, .isNotified = true},
    {.isStarted = true, .extension = notANumber, .isNotified = true},
    {.isStarted = false, .extension = infinity, .isNotified = true},
});

/// The durations in the records.
struct Lengths {
    double focus;
    double rest;
    double paused;
};
constexpr auto lengths = std::to_array<Lengths>({
    {.focus = 1'500, .rest = 300.5, .paused = 30.7},
    {.focus = 0, .rest = 0, .paused = 0},
    {.focus = -1, .rest = -1, .paused = -1},
    {.focus = notANumber, .rest = notANumber, .paused = 0},
    {.focus = infinity, .rest = infinity, .paused = 0},
    {.focus = smallest, .rest = smallest, .paused = smallest},
    {.focus = lowest, .rest = lowest, .paused = 0},
    {.focus = 1'500, .rest = 300, .paused = notANumber},
    {.focus = 1'500, .rest = 300, .paused = lowest},
    {.focus = 1'500, .rest = 300, .paused = -0x1p62},
});

/// Energy and morale of the saved plan.
constexpr auto savedRatings = std::to_array<std::array<std::int64_t, 2>>({{3, 3}, {6, 1}, {5, 0}});

SessionPlan savedPlan(const std::array<std::int64_t, 2>& ratings)
{
    SessionPlan plan = samplePlan(8);
    plan.energy = ratings[0];
    plan.morale = ratings[1];
    return plan;
}

Block blockOf(const Waiting& waiting, const Progress& progress, const Lengths& its, Instant now)
{
    Block block = blockInWork(1, progress.sessions);
    block.focusDurationSeconds = its.focus;
    block.breakDurationSeconds = its.rest;
    if (waiting.isScheduled) {
        block.plannedStart = now + waiting.untilStart;
    }
    if (waiting.wasBegun) {
        block.scheduledStartTriggeredAt = moment - 1'800;
    }
    if (progress.sessions > 0) {
        WorkSession& last = block.sessions.back();
        last.plannedDurationSeconds = its.focus;
        last.accumulatedPausedSeconds = its.paused;
        if (progress.pausedAfter) {
            last.pausedAt = moment + *progress.pausedAfter;
        }
        if (progress.isEnded) {
            last.endedAt = moment + 1'500;
        }
        if (progress.isReviewed) {
            last.review = sampleReview(1);
        }
    }
    return block;
}

const std::vector<AgentQuestion>& questions()
{
    // The second and third question have the same identifier; an answer must go to the first of the two.
    static const std::vector<AgentQuestion> list = {
        {.id = identifier(601), .question = "?", .createdAt = moment, .answer = "!", .answeredAt = moment},
        {.id = identifier(602), .question = "1", .createdAt = moment, .answer = {}, .answeredAt = {}},
        {.id = identifier(602), .question = "2", .createdAt = moment, .answer = {}, .answeredAt = {}},
    };
    return list;
}

const Block& finishedBlock()
{
    static const Block block = [] {
        Block finished = sampleBlock(6);
        finished.reflection = sampleReflection();
        finished.completedAt = moment - 86'400;
        return finished;
    }();
    return block;
}

/// Made once: every new state draws a random identifier, which takes longer than the rest.
const QuillmereState& emptyState()
{
    static const QuillmereState state = stateIn(WorkflowState::idle);
    return state;
}

/// No block, or one of each shape with sessions of each shape.
constexpr std::size_t blockChoices = 1 + blockShapes.size() * sessionShapes.size();
constexpr std::size_t savedPlanChoices = 1 + savedRatings.size();

}  // namespace

std::uint64_t situationCount()
{
    return std::uint64_t{workflowStates.size()} * clockSteps.size() * blockChoices * savedPlanChoices *
           breakShapes.size() * lengths.size();
}

Situation situationAt(std::uint64_t number)
{
    Digits digits(number);
    QuillmereState state = emptyState();
    state.workflowState = digits.oneOf(workflowStates);
    const Instant now = moment + digits.oneOf(clockSteps);
    const Lengths& its = digits.oneOf(lengths);
    if (const std::size_t choice = digits.next(blockChoices)) {
        Digits shape(choice - 1);
        const Waiting& waiting = shape.oneOf(blockShapes);
        state.currentBlock = blockOf(waiting, shape.oneOf(sessionShapes), its, now);
    }
    if (const std::size_t choice = digits.next(savedPlanChoices)) {
        state.plannedNextSession = savedPlan(savedRatings[choice - 1]);
    }
    const Rest& rest = digits.oneOf(breakShapes);
    state.breakStartedAt = rest.isStarted ? std::optional(moment) : std::nullopt;
    state.breakExtensionSeconds = rest.extension;
    state.breakEndNotifiedAt = rest.isNotified ? std::optional(moment + 300) : std::nullopt;
    state.blockHistory.push_back(finishedBlock());
    state.agentQuestions = questions();
    state.updatedAt = moment - 5;
    return {.state = std::move(state), .now = now};
}

}  // namespace quillmere::test
