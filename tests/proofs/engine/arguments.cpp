// The arguments for the calls of every operation.

#include "proofs/engine/digits.hpp"
#include "proofs/engine/situations.hpp"
#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr auto givenRatings = std::to_array<std::int64_t>({0, 1, 5, 6});
constexpr std::size_t planChoices = 1 + givenRatings.size() * givenRatings.size();

/// Blocks to start or schedule, each with one unusual property.
constexpr auto givenDurations =
    std::to_array<double>({1'500, 0, -0.0, -1, notANumber, infinity, -infinity, smallest});
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
    // A block that was started before; for the last number the same block with invalid durations and cycles.
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
    std::to_array<double>({300, 0, -0.0, -1, notANumber, infinity, -infinity, smallest});
constexpr auto texts = std::to_array<const char*>({"", "  ", "Which one?"});
constexpr auto askedFor = std::to_array<unsigned>({601, 602, 603});

std::optional<SessionPlan> givenPlan(std::size_t number)
{
    if (number == 0) {
        return std::nullopt;
    }
    Digits digits(number - 1);
    SessionPlan plan = samplePlan(9);
    plan.energy = digits.oneOf(givenRatings);
    plan.morale = digits.oneOf(givenRatings);
    return plan;
}

}  // namespace

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
