#include "amendments/drop.hpp"

#include "amendment_testing.hpp"

namespace quillmere::test {
namespace {

using amendments::drop;

TEST(DropBlock, leavesNothingOfABlockWithoutASession)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = samplePlan(1);
    QuillmereState expected = stateIn(WorkflowState::idle);
    expected.updatedAt = soon;
    EXPECT_EQ(amended(state, soon, [](auto& s) { drop(s, soon); }), expected);
}

TEST(DropBlock, isRefusedOnceASessionHasBegun)
{
    const QuillmereState state = edited(stateIn(WorkflowState::breaking),
                                        [](auto& s) { s.workflowState = WorkflowState::sessionPlanning; });
    EXPECT_EQ(refused(state, [](auto& s) { drop(s, soon); }),
              "Only a block whose first session has not begun can be dropped.");
}

TEST(DropBlock, isRefusedElsewhere)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::blockPlanning), [](auto& s) { drop(s, soon); }),
              "Only a block whose first session has not begun can be dropped.");
}

}  // namespace
}  // namespace quillmere::test
