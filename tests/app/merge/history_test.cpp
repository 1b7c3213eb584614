#include <gtest/gtest.h>

#include "merge_testing.hpp"

namespace quillmere::test {
namespace {

QuillmereState withHistory(std::vector<Block> blocks)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory = std::move(blocks);
    return state;
}

TEST(AMergedHistory, hasTheBlocksOfBothTheNewestFirst)
{
    const Block first = finishedBlock(10, moment);
    const Block second = finishedBlock(11, moment + 100);
    const Block third = finishedBlock(12, moment + 200);
    const Block fourth = finishedBlock(13, moment + 300);
    EXPECT_EQ(
        mergedBothWays(withHistory({fourth, second, first}), withHistory({third, first})).state.blockHistory,
        (std::vector{fourth, third, second, first}));
}

TEST(AMergedHistory, placesABlockWithoutAnEndByTheLastStartInIt)
{
    Block unfinished = finishedBlock(11, moment + 300);
    unfinished.sessions.back().startedAt = moment + 100;
    unfinished.completedAt.reset();
    const Block first = finishedBlock(10, moment);
    const Block last = finishedBlock(12, moment + 200);
    EXPECT_EQ(mergedBothWays(withHistory({unfinished}), withHistory({last, first})).state.blockHistory,
              (std::vector{last, unfinished, first}));
}

TEST(AMergedHistory, keepsTheOrderOfTheSideThatHasAllBlocks)
{
    // A clock was set back between them.
    const std::vector<Block> blocks = {finishedBlock(10, moment), finishedBlock(11, moment + 100)};
    EXPECT_EQ(mergedBothWays(withHistory(blocks), withHistory({blocks[1]})).state.blockHistory, blocks);
}

TEST(AMergedHistory, joinsTheCopiesOfABlock)
{
    Block longer = finishedBlock(10, moment, 2);
    const Block shorter = finishedBlock(10, moment - 50, 1);
    const std::vector<Block> blocks =
        mergedBothWays(withHistory({longer}), withHistory({shorter})).state.blockHistory;
    ASSERT_EQ(blocks.size(), 1);
    EXPECT_EQ(blocks[0].sessions.size(), 2);
    EXPECT_EQ(blocks[0].completedAt, moment);
}

}  // namespace
}  // namespace quillmere::test
