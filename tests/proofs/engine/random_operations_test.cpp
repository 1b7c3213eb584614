// Random operations from an initial state: each is compared with the reference model, and the invariants are
// checked after each.
#include <gtest/gtest.h>

#include "proofs/engine/invariants.hpp"
#include "proofs/engine/oracle.hpp"
#include "proofs/engine/random_calls.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

/// After so many operations a new state follows, which bounds its size.
constexpr std::uint64_t operationsOnAState = 400;

/// The summaries, the timer and the file are checked every so many operations.
constexpr std::uint64_t operationsBetweenLooks = 8;

/// The invariants after every call.
void expectInvariants(const QuillmereState& before, const QuillmereState& after, const Answer& answer,
                      Instant now)
{
    if (answer.didSomething()) {
        EXPECT_EQ(after.updatedAt, now);
        EXPECT_EQ(after.id, before.id);
        expectSound(after);
    } else {
        EXPECT_TRUE(isSame(before, after)) << "refused, or nothing to do, and yet something was written";
    }
}

/// Checks the summaries, the timer and the file of a state.
void expectSeenAlike(const QuillmereState& state, Instant now)
{
    const std::optional<Reading> clock = reading(state, now);
    if (isFinite(state) && !(clock && clock->isFatal)) {
        expectSummariesAgree(state, now);
        expectReadsBack(state);
    }
}

/// The calls that a host makes once a second.
struct Tick {
    std::uint64_t acted = 0;

    Tick(Oracle& oracle, QuillmereState& state, Instant now)
    {
        for (const Operation operation : {Operation::evaluateSchedule, Operation::evaluateTimer}) {
            const QuillmereState before = state;
            const std::optional<Answer> answer = oracle.check(state, Call::of(operation, now));
            acted += answer && answer->didSomething() ? 1 : 0;
            expectInvariants(before, state,
                             answer.value_or(Answer{.refusal = {}, .begun = false, .transition = {}}), now);
        }
    }
};

/// Ticks twice at the same instant; returns whether the first tick had an effect.
bool tickTwice(Oracle& oracle, QuillmereState& state, Instant now)
{
    const Tick first(oracle, state, now);
    EXPECT_LE(first.acted, 1);
    const QuillmereState between = state;
    const Tick second(oracle, state, now);
    EXPECT_EQ(second.acted, 0) << "the same instant acted twice";
    EXPECT_TRUE(isSame(between, state));
    return first.acted > 0;
}

TEST(RandomOperations, obeyTheRulesAndKeepWhatAlwaysHolds)
{
    Oracle oracle;
    RandomCalls calls(20'261'121);
    const std::uint64_t wanted = amount(8'000, 10'000'000);
    std::uint64_t made = 0;
    std::uint64_t ticks = 0;
    std::uint64_t ticksThatActed = 0;
    while (made < wanted && !HasFailure()) {
        QuillmereState state = QuillmereState::initial(calls.now());
        for (std::uint64_t step = 0; step < operationsOnAState && made < wanted; ++step, ++made) {
            const Call call = calls.next(state);
            const QuillmereState before = state;
            if (const std::optional<Answer> answer = oracle.check(state, call)) {
                expectInvariants(before, state, *answer, call.now);
            }
            if (made % operationsBetweenLooks == 0) {
                expectSeenAlike(state, call.now);
            }
            if (calls.oneIn(4)) {
                ++ticks;
                ticksThatActed += tickTwice(oracle, state, call.now) ? 1 : 0;
            }
        }
    }
    for (std::size_t place = 0; place < operationCount; ++place) {
        EXPECT_GT(oracle.of(operationAt(place)).acted, amount(10, 100)) << nameOf(operationAt(place));
    }
    EXPECT_GT(ticksThatActed, amount(20, 100));
    const std::string promise = "The engine under random operations";
    reportFigure(promise, "operations", made);
    reportFigure(promise, "ticks, each made twice", ticks);
    reportFigure(promise, "ticks that had something to do", ticksThatActed);
    reportFigure(promise, "operations that must stop the program, left out", oracle.fatal());
}

}  // namespace
}  // namespace quillmere::test
