// A person who works, amends, undoes and redoes at random, with clocks that are set back and files that
// another program has damaged. Nothing stops the program, and no state is a dead end.
#include <gtest/gtest.h>

#include "app/amendments/amendment_testing.hpp"
#include "proofs/steering/random_person.hpp"
#include "proofs/steering/way_home.hpp"
#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

/// States are examined after every amendment, and every so many acts.
constexpr std::uint64_t actsBetweenLooks = 1'000;

TEST(SteeredWork, goesOnFromEveryStateAndIsAtMostThreeStepsFromIdle)
{
    RandomPerson person;
    const std::uint64_t wanted = amount(100'000, 10'000'000);
    std::uint64_t acts = 0;
    std::uint64_t examined = 0;
    while (acts < wanted && !HasFailure()) {
        ++acts;
        if (person.act() == Deed::amendment || acts % actsBetweenLooks == 0) {
            expectUsable(person.state(), person.now());
            EXPECT_LE(stepsHome(person.state(), person.now()), 3);
            ++examined;
        }
    }
    // Otherwise the walk shows nothing.
    for (int kind = 0; kind < 12; ++kind) {
        EXPECT_GT(person.count(static_cast<amendments::Kind>(kind)), amount(20, 2'000)) << kind;
    }
    for (const Deed deed : {Deed::step, Deed::amendment, Deed::undo, Deed::redo}) {
        EXPECT_GT(person.count(deed), amount(500, 50'000)) << static_cast<int>(deed);
    }
    const std::string promise = "Steps, amendments and undo at random";
    reportFigure(promise, "acts", acts);
    reportFigure(promise, "of these, steps of the work", person.count(Deed::step));
    reportFigure(promise, "of these, amendments", person.count(Deed::amendment));
    reportFigure(promise, "of these, undone", person.count(Deed::undo));
    reportFigure(promise, "of these, done again", person.count(Deed::redo));
    reportFigure(promise, "states examined, each at most three steps from idle", examined);
}

}  // namespace
}  // namespace quillmere::test
