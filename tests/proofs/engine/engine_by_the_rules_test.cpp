// Every operation in every situation, against the second statement of the rules.
//
// There are as many calls of an operation as situations times its arguments. The long form makes all of
// them where there are no more than two million, two million otherwise; the short one two thousand of
// each operation, spread evenly over all situations and arguments.
#include <gtest/gtest.h>

#include <csignal>

#include "proofs/engine/second_opinion.hpp"
#include "proofs/engine/situations.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

/// All calls of one operation, in an order that jumps about: any run of them is a fair sample.
class AllCalls {
public:
    explicit AllCalls(Operation operation) : operation_(operation) {}

    std::uint64_t count() const { return situationCount() * argumentCount(operation_); }

    struct Case {
        Situation situation;
        Call call;
    };

    Case at(std::uint64_t place) const
    {
        // A prime that divides no number of choices, so that every number comes up exactly once.
        constexpr std::uint64_t prime = 2'654'435'761;
        const std::uint64_t number = place * prime % count();
        Situation situation = situationAt(number % situationCount());
        Call call = callAt(operation_, number / situationCount(), situation.now);
        return {.situation = std::move(situation), .call = std::move(call)};
    }

private:
    Operation operation_;
};

TEST(TheEngine, doesWhatTheRulesSayInEverySituation)
{
    SecondOpinion opinion;
    for (std::size_t place = 0; place < operationCount && !HasFailure(); ++place) {
        const AllCalls calls(operationAt(place));
        const std::uint64_t wanted = std::min(calls.count(), amount(2'000, 2'000'000));
        for (std::uint64_t index = 0; index < wanted && !HasFailure(); ++index) {
            AllCalls::Case next = calls.at(index);
            opinion.check(next.situation.state, next.call);
        }
    }
    // Rules that hardly ever came up have not been tested.
    for (std::size_t place = 0; place < operationCount; ++place) {
        EXPECT_GT(opinion.of(operationAt(place)).acted, amount(2, 5)) << nameOf(operationAt(place));
    }
    using enum WorkflowError::Case;
    for (const auto reason : {invalidTransition, missingSessionPlan, nextSessionPlanRequired,
                              ratingOutOfRange, invalidDuration}) {
        EXPECT_GT(opinion.refused(reason), amount(0, 5)) << WorkflowError(reason).what();
    }
    EXPECT_EQ(opinion.refused(missingBlock), 0) << "no operation throws it";
    EXPECT_GT(opinion.compared(), amount(10'000, 100'000));
    const std::string promise = "The engine against a second statement of its rules";
    reportFigure(promise, "situations to choose from", situationCount());
    reportFigure(promise, "calls compared", opinion.compared());
    reportFigure(promise, "calls that must stop the program, left out", opinion.fatal());
}

TEST(TheEngineDeathTest, stopsTheProgramWhereTheRulesSaySo)
{
    const AllCalls calls(Operation::evaluateTimer);
    const std::uint64_t wanted = amount(12, 400);
    std::uint64_t stopped = 0;
    for (std::uint64_t place = 0; place < calls.count() && stopped < wanted; ++place) {
        AllCalls::Case next = calls.at(place);
        if (ruling(next.situation.state, next.call).isFatal) {
            EXPECT_EXIT(perform(next.situation.state, next.call), testing::KilledBySignal(SIGABRT), "");
            ++stopped;
        }
    }
    EXPECT_EQ(stopped, wanted);
    reportFigure("The engine against a second statement of its rules", "stops of the program seen", stopped);
}

}  // namespace
}  // namespace quillmere::test
