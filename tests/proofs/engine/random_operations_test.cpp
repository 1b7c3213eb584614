// Random operations from an initial state on: each is compared with the second statement of the rules, and
// invariants are checked after each.
#include <gtest/gtest.h>

#include "proofs/engine/invariants.hpp"
#include "proofs/engine/random_calls.hpp"
#include "proofs/engine/second_opinion.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

/// Then a new state follows, so that none grows for long.
constexpr std::uint64_t operationsOnAState = 400;

/// Every so many operations, the state is seen by others.
constexpr std::uint64_t operationsBetweenLooks = 8;

/// What holds after every call.
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

/// What others see of a state: the summaries, the timer and the file.
void expectSeenAlike(const QuillmereState& state, Instant now)
{
    const std::optional<Reading> clock = reading(state, now);
    if (isFinite(state) && !(clock && clock->isFatal)) {
        expectSummariesAgree(state, now);
        expectReadsBack(state);
    }
}

/// What a host does once a second.
struct Tick {
    std::uint64_t acted = 0;

    Tick(SecondOpinion& opinion, QuillmereState& state, Instant now)
    {
        for (const Operation operation : {Operation::evaluateSchedule, Operation::evaluateTimer}) {
            const QuillmereState before = state;
            const std::optional<Answer> answer = opinion.check(state, Call::of(operation, now));
            acted += answer && answer->didSomething() ? 1 : 0;
            expectInvariants(before, state,
                             answer.value_or(Answer{.refusal = {}, .begun = false, .transition = {}}), now);
        }
    }
};

/// A tick, and the same tick again; says whether the first one did something.
bool tickTwice(SecondOpinion& opinion, QuillmereState& state, Instant now)
{
    const Tick first(opinion, state, now);
    EXPECT_LE(first.acted, 1);
    const QuillmereState between = state;
    const Tick second(opinion, state, now);
    EXPECT_EQ(second.acted, 0) << "the same instant acted twice";
    EXPECT_TRUE(isSame(between, state));
    return first.acted > 0;
}

TEST(RandomOperations, obeyTheRulesAndKeepWhatAlwaysHolds)
{
    SecondOpinion opinion;
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
            if (const std::optional<Answer> answer = opinion.check(state, call)) {
                expectInvariants(before, state, *answer, call.now);
            }
            if (made % operationsBetweenLooks == 0) {
                expectSeenAlike(state, call.now);
            }
            if (calls.oneIn(4)) {
                ++ticks;
                ticksThatActed += tickTwice(opinion, state, call.now) ? 1 : 0;
            }
        }
    }
    for (std::size_t place = 0; place < operationCount; ++place) {
        EXPECT_GT(opinion.of(operationAt(place)).acted, amount(10, 100)) << nameOf(operationAt(place));
    }
    EXPECT_GT(ticksThatActed, amount(20, 100));
    const std::string promise = "The engine under random operations";
    reportFigure(promise, "operations", made);
    reportFigure(promise, "ticks, each made twice", ticks);
    reportFigure(promise, "ticks that had something to do", ticksThatActed);
    reportFigure(promise, "operations that must stop the program, left out", opinion.fatal());
}

}  // namespace
}  // namespace quillmere::test
