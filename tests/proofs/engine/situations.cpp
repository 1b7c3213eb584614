#include "proofs/engine/situations.hpp"

#include <limits>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double lowest = -0x1p63;  // the lowest number of whole seconds there is

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

/// What the clock shows, after the moment that the records are about. 1500 ends a session, 300 a break.
constexpr auto clockSteps =
    std::to_array<double>({0, 0.3, 1, 300, 1'500, 10'000, -0.3, -10'000, notANumber, infinite});

/// When a block waits to begin, as seen from the clock.
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

/// How many of the three sessions there are, and how far the last one is.
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
    {.isStarted = false, .extension = infinite, .isNotified = true},
});

/// What the records say about lengths of time.
struct Lengths {
    double focus;
    double rest;
    double paused;
};
constexpr auto lengths = std::to_array<Lengths>({
    {.focus = 1'500, .rest = 300, .paused = 30.7},
    {.focus = 0, .rest = 0, .paused = 0},
    {.focus = -1, .rest = -1, .paused = -1},
    {.focus = notANumber, .rest = notANumber, .paused = 0},
    {.focus = infinite, .rest = infinite, .paused = 0},
    {.focus = smallest, .rest = smallest, .paused = smallest},
    {.focus = lowest, .rest = lowest, .paused = 0},
    {.focus = 1'500, .rest = 300, .paused = notANumber},
    {.focus = 1'500, .rest = 300, .paused = lowest},
    {.focus = 1'500, .rest = 300, .paused = -0x1p62},
});

struct Ratings {
    std::int64_t energy;
    std::int64_t morale;
};
constexpr auto savedRatings = std::to_array<Ratings>({{3, 3}, {6, 1}, {5, 0}});
constexpr auto ratings = std::to_array<std::int64_t>({0, 1, 5, 6});

/// Reads one digit after the other off a number, each in a base of its own.
class Digits {
public:
    explicit Digits(std::uint64_t number) : number_(number) {}

    std::size_t next(std::size_t base)
    {
        const std::uint64_t digit = number_ % base;
        number_ /= base;
        return static_cast<std::size_t>(digit);
    }

    template <class Row, std::size_t count>
    const Row& oneOf(const std::array<Row, count>& rows)
    {
        return rows[next(count)];
    }

private:
    std::uint64_t number_;
};

SessionPlan planWith(unsigned number, Ratings its)
{
    SessionPlan plan = samplePlan(number);
    plan.energy = its.energy;
    plan.morale = its.morale;
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
    // The second and the third have the same identifier; the first of them is the one that is meant.
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

/// Made once: every new state draws an identifier, which takes longer than all the rest.
const QuillmereState& emptyState()
{
    static const QuillmereState state = stateIn(WorkflowState::idle);
    return state;
}

/// No block, or one of each shape with sessions of each shape.
constexpr std::size_t blockChoices = 1 + blockShapes.size() * sessionShapes.size();
constexpr std::size_t savedPlanChoices = 1 + savedRatings.size();
constexpr std::size_t planChoices = 1 + ratings.size() * ratings.size();

/// Blocks to begin or schedule: in each, one thing is out of the ordinary.
constexpr auto givenDurations =
    std::to_array<double>({1'500, 0, -0.0, -1, notANumber, infinite, -infinite, smallest});
constexpr auto givenCycles = std::to_array<std::int64_t>({1, 0, -1, INT64_MAX, INT64_MIN});
constexpr std::size_t givenBlockChoices = 2 * givenDurations.size() + givenCycles.size() + 2;

Block givenBlock(std::size_t number)
{
    Block block = sampleBlock(2);
    if (number < givenDurations.size()) {
        block.focusDurationSeconds = givenDurations[number];
        return block;
    }
    number -= givenDurations.size();
    if (number < givenDurations.size()) {
        block.breakDurationSeconds = givenDurations[number];
        return block;
    }
    number -= givenDurations.size();
    if (number < givenCycles.size()) {
        block.cycleCount = givenCycles[number];
        return block;
    }
    // One that was begun and worked on before; and that one with nothing in it that may be accepted.
    block = blockInWork(2, 2);
    block.scheduledStartTriggeredAt = moment - 60;
    block.reflection = sampleReflection();
    if (number > givenCycles.size()) {
        block.focusDurationSeconds = 0;
        block.breakDurationSeconds = notANumber;
        block.cycleCount = 0;
    }
    return block;
}

constexpr auto extensions =
    std::to_array<double>({300, 0, -0.0, -1, notANumber, infinite, -infinite, smallest});
constexpr auto texts = std::to_array<const char*>({"", "  ", "Which one?"});
constexpr auto askedFor = std::to_array<unsigned>({601, 602, 603});

std::optional<SessionPlan> givenPlan(std::size_t number)
{
    if (number == 0) {
        return std::nullopt;
    }
    Digits digits(number - 1);
    const std::int64_t energy = digits.oneOf(ratings);
    const std::int64_t morale = digits.oneOf(ratings);
    return planWith(9, {.energy = energy, .morale = morale});
}

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
        state.plannedNextSession = planWith(8, savedRatings[choice - 1]);
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

std::uint64_t argumentCount(Operation operation)
{
    switch (operation) {
        using enum Operation;
        case startBlock: return givenBlockChoices;
        case scheduleBlock: return givenBlockChoices * 2;
        case startFocus:
        case saveReviewAndStartBreak: return planChoices;
        case extendBreak: return extensions.size();
        case addQuestion: return texts.size();
        case answerQuestion: return askedFor.size() * texts.size();
        default: return 1;
    }
}

Call callAt(Operation operation, std::uint64_t number, Instant now)
{
    Call call = Call::of(operation, now);
    Digits digits(number);
    switch (operation) {
        using enum Operation;
        case startBlock: call.block = givenBlock(digits.next(givenBlockChoices)); break;
        case scheduleBlock:
            call.block = givenBlock(digits.next(givenBlockChoices));
            call.block->plannedStart = digits.next(2) == 0 ? std::nullopt : std::optional(now + 60);
            break;
        case saveReviewAndStartBreak: call.review = sampleReview(9); [[fallthrough]];
        case startFocus: call.plan = givenPlan(digits.next(planChoices)); break;
        case completeBlockReview: call.reflection = sampleReflection(); break;
        case extendBreak: call.seconds = digits.oneOf(extensions); break;
        case answerQuestion: call.question = identifier(digits.oneOf(askedFor)); [[fallthrough]];
        case addQuestion: call.text = digits.oneOf(texts); break;
        default: break;
    }
    return call;
}

}  // namespace quillmere::test
