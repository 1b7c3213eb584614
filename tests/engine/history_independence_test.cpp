// No operation and no summary does work that grows with the number of finished blocks: a long history causes
// no more allocations, and its blocks stay in place.
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <utility>
#include <vector>

#include "engine_testing.hpp"
#include "support/failing_allocations.hpp"
#include "workflow_map.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t finishedBlocks = 10'000;

std::vector<Block> longHistory()
{
    Block block = blockInWork(1, 1);
    block.reflection = sampleReflection();
    return std::vector<Block>(finishedBlocks, block);
}

struct Cost {
    std::size_t allocations;
    bool historyStayedInPlace;
};

/// Moves `history` into the state and back: it is too long to be copied for every measurement.
template <class Operation>
Cost costOf(Operation operation, QuillmereState state, std::vector<Block>& history)
{
    state.blockHistory = std::move(history);
    const Block* const place = state.blockHistory.data();
    const std::size_t before = allocationsMade();
    operation(state);
    const std::size_t allocations = allocationsMade() - before;
    const bool stayed = state.blockHistory.data() == place;
    history = std::move(state.blockHistory);
    return {allocations, stayed};
}

TEST(History, makesNoOperationAllocateMore)
{
    std::vector<Block> none;
    std::vector<Block> many = longHistory();
    for (const Arrow& arrow : arrows()) {
        SCOPED_TRACE(nameOf(arrow));
        const auto walk = [&](QuillmereState& state) { arrow.walk(state, now); };
        const Cost withMany = costOf(walk, startOf(arrow), many);
        none = {};
        const Cost withNone = costOf(walk, startOf(arrow), none);
        EXPECT_EQ(withMany.allocations, withNone.allocations);
        // Only this operation inserts into the history.
        EXPECT_EQ(withMany.historyStayedInPlace, arrow.operation != "completeBlockReview");
    }
    EXPECT_EQ(many.size(), finishedBlocks + 1);
}

TEST(History, makesNoSummaryAllocateMore)
{
    const StateStore store(
        "", [] { return now; }, &StateStore::renameReplacing);
    std::vector<Block> none;
    std::vector<Block> many = longHistory();
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const auto agent = [&](QuillmereState& state) { (void)store.agentSnapshot(state, now); };
        const auto widget = [](QuillmereState& state) { (void)WidgetSnapshot::make(state, now); };
        const QuillmereState state = crowdedStateIn(workflowState);
        EXPECT_EQ(costOf(agent, state, many).allocations, costOf(agent, state, none).allocations);
        EXPECT_EQ(costOf(widget, state, many).allocations, costOf(widget, state, none).allocations);
    }
}

}  // namespace
}  // namespace quillmere::test
