#include "amendments/delete_block.hpp"

#include "amendment_testing.hpp"

namespace quillmere::test {
namespace {

using amendments::deleteBlock;

/// Three finished blocks, and one in work.
QuillmereState withHistory()
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.blockHistory = {blockInWork(4, 3), blockInWork(3, 3), blockInWork(2, 3)};
    return state;
}

TEST(DeleteBlock, leavesTheOthersInTheHistory)
{
    const QuillmereState before = withHistory();
    QuillmereState expected = before;
    expected.blockHistory = {before.blockHistory[0], before.blockHistory[2]};
    expected.updatedAt = soon;
    EXPECT_EQ(amended(before, soon, [&](auto& s) { deleteBlock(s, before.blockHistory[1].id, soon); }),
              expected);
}

TEST(DeleteBlock, refusesABlockThatIsNotThere)
{
    EXPECT_EQ(refused(withHistory(), [](auto& s) { deleteBlock(s, identifier(1), soon); }),
              "There is no such finished block. Possible: a block of the history.");
}

TEST(DeleteBlock, refusesABlockInWork)
{
    const QuillmereState state = withHistory();
    EXPECT_EQ(refused(state, [&](auto& s) { deleteBlock(s, state.currentBlock->id, soon); }),
              "This block is not finished, so that it cannot be deleted.");
}

}  // namespace
}  // namespace quillmere::test
