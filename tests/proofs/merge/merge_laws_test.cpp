// The laws of the merge, for walks of three machines that fork from one state: they work at random, by clocks
// that agree or lie two hours apart, and now and then one takes up what another has done.
#include "merge/merge.hpp"

#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/amendments/amendment_testing.hpp"
#include "proofs/merge/content.hpp"
#include "proofs/merge/walking_machine.hpp"
#include "proofs/support/figures.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// From so many pairs one goes on for fifty operations.
constexpr std::uint64_t pairsBetweenWalks = 25;

QuillmereState merged(const QuillmereState& a, const QuillmereState& b) { return merge::merge(a, b).state; }

std::string textOf(const QuillmereState& state)
{
    return std::string(StateStore::encoder().encode(state).view());
}

/// Fails unless the files of both are the same: all instants are whole seconds.
void expectSame(const QuillmereState& one, const QuillmereState& other)
{
    if (one != other) {
        EXPECT_EQ(textOf(one), textOf(other));
    }
}

/// Whether the newer state has no trace of what the older one planned: its block without sessions is gone, or
/// the planning of one, which was scheduled and cancelled since.
bool wasDropped(const QuillmereState& older, const QuillmereState& newer)
{
    if (older.currentBlock) {
        return older.currentBlock->sessions.empty() && !blockIn(newer, older.currentBlock->id);
    }
    return older.workflowState == WorkflowState::blockPlanning &&
           newer.workflowState == WorkflowState::idle && !newer.currentBlock &&
           newer.blockHistory.size() == older.blockHistory.size();
}

class MergeLaws : public testing::Test {
protected:
    using Machines = std::vector<WalkingMachine>;

    WalkRandom random;
    Instant now = moment;
    std::uint64_t pairs = 0;
    std::uint64_t competing = 0;
    std::uint64_t ancestors = 0;
    std::uint64_t disappeared = 0;
    std::uint64_t continued = 0;

    /// The present of all clocks, before their offsets.
    Instant tick() { return now = now + (1 + random.below(1'800)); }

    Machines fork(bool clocksAgree)
    {
        WalkingMachine origin(stateIn(WorkflowState::idle), 0);
        for (std::uint32_t count = random.below(25); count > 0; --count) {
            origin.act(random, tick());
        }
        const double apart = clocksAgree ? 0 : 7'200;
        return {{origin.state(), 0}, {origin.state(), apart}, {origin.state(), -apart}};
    }

    void walk(Machines& machines)
    {
        for (std::uint32_t count = random.below(40); count > 0; --count) {
            WalkingMachine& machine = machines[random.below(machines.size())];
            if (random.oneIn(15)) {
                machine.take(merged(machine.state(), machines[random.below(machines.size())].state()));
            } else {
                machine.act(random, tick());
            }
        }
    }

    void expectLawsOfTwo(const QuillmereState& a, const QuillmereState& b)
    {
        ++pairs;
        const merge::MergeResult result = merge::merge(a, b);
        competing += result.blocksCompeted ? 1 : 0;
        expectSame(merged(b, a), result.state);
        expectSame(merged(a, a), a);
        expectSame(merged(result.state, a), result.state);
        expectSame(merged(result.state, b), result.state);
        EXPECT_EQ(lostFrom(a, result.state), "");
        EXPECT_EQ(lostFrom(b, result.state), "");
        if (pairs % pairsBetweenWalks == 0) {
            expectUsable(result.state, now);
            WalkingMachine next(result.state, 0);
            for (int count = 0; count < 50; ++count, ++continued) {
                EXPECT_NO_THROW(next.act(random, tick()));
            }
            expectUsable(next.state(), now);
        }
    }

    void expectLawOfThree(const Machines& machines)
    {
        const QuillmereState& a = machines[0].state();
        const QuillmereState& b = machines[1].state();
        const QuillmereState& c = machines[2].state();
        EXPECT_EQ(Content::of(merged(merged(a, b), c)), Content::of(merged(a, merged(b, c))));
    }

    /// An older state changes nothing, unless what it planned was dropped since.
    void expectNothingFromThePast(const WalkingMachine& machine)
    {
        if (machine.past().empty()) {
            return;
        }
        const QuillmereState& older = machine.past()[random.below(machine.past().size())];
        const bool hasDisappeared = wasDropped(older, machine.state());
        ++(hasDisappeared ? disappeared : ancestors);
        if (!hasDisappeared) {
            expectSame(merged(older, machine.state()), machine.state());
        }
    }
};

TEST_F(MergeLaws, holdForMachinesThatForkAndMeetAgain)
{
    const std::uint64_t wanted = amount(10'000, 100'000);
    while (pairs < wanted && !HasFailure()) {
        const bool clocksAgree = random.oneIn(2);
        Machines machines = fork(clocksAgree);
        walk(machines);
        for (std::size_t index = 0; index < machines.size(); ++index) {
            expectLawsOfTwo(machines[index].state(), machines[(index + 1) % machines.size()].state());
        }
        expectLawOfThree(machines);
        if (clocksAgree) {
            expectNothingFromThePast(machines[random.below(machines.size())]);
        }
    }
    // Otherwise the walks show little.
    EXPECT_GT(competing, wanted / 20);
    EXPECT_GT(ancestors, wanted / 20);
    const std::string promise = "Merging two copies";
    reportFigure(promise, "pairs of machines that forked and worked on", pairs);
    reportFigure(promise, "of these, with two live blocks", competing);
    reportFigure(promise, "older states that change nothing", ancestors);
    reportFigure(promise, "older states not examined: what they planned was dropped since", disappeared);
    reportFigure(promise, "operations on merged states", continued);
}

}  // namespace
}  // namespace quillmere::test
