#include "merge_testing.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {

merge::MergeResult mergedBothWays(const QuillmereState& a, const QuillmereState& b)
{
    merge::MergeResult result = merge::merge(a, b);
    EXPECT_EQ(merge::merge(b, a).state, result.state);
    EXPECT_EQ(merge::merge(result.state, a).state, result.state);
    EXPECT_EQ(merge::merge(result.state, b).state, result.state);
    return result;
}

QuillmereState atAnotherBlock(WorkflowState workflowState)
{
    QuillmereState state = stateIn(workflowState);
    state.currentBlock->id = identifier(350);
    for (WorkSession& session : state.currentBlock->sessions) {
        session.id = identifier(450 + static_cast<unsigned>(session.number));
    }
    return state;
}

Block finishedBlock(unsigned number, Instant completedAt, std::int64_t sessionCount)
{
    Block block = blockInWork(number, sessionCount);
    if (sessionCount > 0) {
        block.sessions.back().endedAt = completedAt;
    }
    block.completedAt = completedAt;
    return block;
}

}  // namespace quillmere::test
