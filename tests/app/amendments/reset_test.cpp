#include "amendments/reset.hpp"

#include "amendment_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::reset;

/// States that no operation leads on from; only a file can bring them.
std::vector<QuillmereState> stuckStates()
{
    using enum WorkflowState;
    return {
        stateIn(complete),
        edited(stateIn(complete), [](auto& s) { s.currentBlock = sampleBlock(1); }),
        edited(stateIn(focusing), [](auto& s) { s.currentBlock.reset(); }),
        edited(stateIn(focusing), [](auto& s) { s.currentBlock->sessions.clear(); }),
        edited(stateIn(sessionReview), [](auto& s) { s.currentBlock->sessions.clear(); }),
        edited(stateIn(blockReview), [](auto& s) { s.currentBlock.reset(); }),
        edited(stateIn(idle), [](auto& s) { s.currentBlock = sampleBlock(1); }),
    };
}

TEST(Reset, leadsOutOfStatesThatNothingElseLeadsOutOf)
{
    QuillmereState expected = stateIn(WorkflowState::idle);
    expected.updatedAt = soon;
    for (const QuillmereState& stuck : stuckStates()) {
        EXPECT_EQ(amended(stuck, soon, [](auto& s) { reset(s, soon); }), expected);
    }
}

TEST(Reset, putsABlockWithSessionsIntoTheHistory)
{
    const QuillmereState stuck = edited(stateIn(WorkflowState::blockReview),
                                        [](auto& s) { s.workflowState = WorkflowState::complete; });
    QuillmereState expected = stateIn(WorkflowState::idle);
    expected.blockHistory = {*stuck.currentBlock};
    expected.blockHistory[0].completedAt = soon;
    expected.updatedAt = soon;
    EXPECT_EQ(amended(stuck, soon, [](auto& s) { reset(s, soon); }), expected);
}

TEST(Reset, keepsTheTimeAtWhichABlockSaysThatItWasCompleted)
{
    const QuillmereState stuck = edited(stateIn(WorkflowState::blockReview), [](auto& s) {
        s.workflowState = WorkflowState::complete;
        s.currentBlock->completedAt = moment;
    });
    EXPECT_EQ(amended(stuck, soon, [](auto& s) { reset(s, soon); }).blockHistory[0].completedAt, moment);
}

TEST(Reset, isRefusedWhereTheWorkCanGoOn)
{
    using enum WorkflowState;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        if (workflowState != complete) {
            EXPECT_TRUE(refused(stateIn(workflowState), [](auto& s) {
                            reset(s, soon);
                        }).starts_with("The work can go on from here, so that nothing has to be reset."));
        }
    }
    EXPECT_EQ(refused(stateWithScheduledBlock(), [](auto& s) { reset(s, soon); }),
              "The work can go on from here, so that nothing has to be reset.");
}

}  // namespace
}  // namespace quillmere::test
