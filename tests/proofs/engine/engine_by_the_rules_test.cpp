// Every operation in every situation, compared with the reference model.
//
// The calls of an operation are all combinations of its situations and arguments. The long form makes all of
// them, but at most two million per operation. The short form makes two thousand per operation, spread
// evenly.
#include <gtest/gtest.h>

#include <csignal>

#include "proofs/engine/oracle.hpp"
#include "proofs/engine/situations.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

/// All calls of one operation, in a scattered order: any contiguous part is a fair sample.
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
        // A prime that divides no number of calls, so that every number occurs exactly once.
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
    Oracle oracle;
    for (std::size_t place = 0; place < operationCount && !HasFailure(); ++place) {
        const AllCalls calls(operationAt(place));
        const std::uint64_t wanted = std::min(calls.count(), amount(2'000, 2'000'000));
        for (std::uint64_t index = 0; index < wanted && !HasFailure(); ++index) {
            AllCalls::Case next = calls.at(index);
            oracle.check(next.situation.state, next.call);
        }
    }
    // A rule that hardly ever applied has not been tested.
    for (std::size_t place = 0; place < operationCount; ++place) {
        EXPECT_GT(oracle.of(operationAt(place)).acted, amount(2, 5)) << nameOf(operationAt(place));
    }
    using enum WorkflowError::Case;
    for (const auto reason : {invalidTransition, missingSessionPlan, nextSessionPlanRequired,
                              ratingOutOfRange, invalidDuration}) {
        EXPECT_GT(oracle.refused(reason), amount(0, 5)) << WorkflowError(reason).what();
    }
    EXPECT_EQ(oracle.refused(missingBlock), 0) << "no operation throws it";
    EXPECT_GT(oracle.compared(), amount(10'000, 100'000));
    const std::string promise = "The engine against a second statement of its rules";
    reportFigure(promise, "situations to choose from", situationCount());
    reportFigure(promise, "calls compared", oracle.compared());
    reportFigure(promise, "calls that must stop the program, left out", oracle.fatal());
}

TEST(TheEngineDeathTest, stopsTheProgramWhereTheRulesSaySo)
{
    const AllCalls calls(Operation::evaluateTimer);
    const std::uint64_t wanted = amount(12, 400);
    std::uint64_t stopped = 0;
    for (std::uint64_t place = 0; place < calls.count() && stopped < wanted; ++place) {
        AllCalls::Case next = calls.at(place);
        if (expectedOutcome(next.situation.state, next.call).isFatal) {
            EXPECT_EXIT(perform(next.situation.state, next.call), testing::KilledBySignal(SIGABRT), "");
            ++stopped;
        }
    }
    EXPECT_EQ(stopped, wanted);
    reportFigure("The engine against a second statement of its rules", "stops of the program seen", stopped);
}

}  // namespace
}  // namespace quillmere::test
