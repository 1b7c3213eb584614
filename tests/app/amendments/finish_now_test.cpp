#include "amendments/finish_now.hpp"

#include "amendment_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::finishNow;

/// A block of three cycles after its first session, in its review.
QuillmereState reviewAfterOneOfThree()
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.workflowState = WorkflowState::blockReview;
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    state.updatedAt = soon;
    return state;
}

TEST(FinishNow, leadsFromABreakToTheReviewOfTheBlock)
{
    const QuillmereState state = edited(stateIn(WorkflowState::breaking), [](auto& s) {
        WorkflowEngine().extendBreak(s, 60, moment);
        s.breakEndNotifiedAt = moment;
    });
    EXPECT_EQ(amended(state, soon, [](auto& s) { finishNow(s, soon); }), reviewAfterOneOfThree());
}

TEST(FinishNow, leadsFromThePlanOfTheNextSessionToTheReviewOfTheBlock)
{
    const QuillmereState state =
        edited(stateIn(WorkflowState::breaking), [](auto& s) { WorkflowEngine().endBreak(s, moment); });
    EXPECT_EQ(amended(state, soon, [](auto& s) { finishNow(s, soon); }), reviewAfterOneOfThree());
}

TEST(FinishNow, savesTheReviewOfTheSessionThatWaitsForOne)
{
    EXPECT_EQ(amended(stateIn(WorkflowState::sessionReview), soon,
                      [](auto& s) { finishNow(s, sampleReview(1), soon); }),
              reviewAfterOneOfThree());
}

TEST(FinishNow, leavesABlockThatTheEngineCompletes)
{
    QuillmereState state =
        amended(stateIn(WorkflowState::breaking), soon, [](auto& s) { finishNow(s, soon); });
    WorkflowEngine().completeBlockReview(state, sampleReflection(), soon);
    EXPECT_EQ(state.blockHistory[0].sessions.size(), 1U);
    EXPECT_EQ(state.blockHistory[0].cycleCount, 3);
}

TEST(FinishNow, isRefusedElsewhere)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::focusing), [](auto& s) { finishNow(s, soon); }),
              "A block is finished between its sessions, or with the review of one.");
    EXPECT_EQ(refused(stateIn(WorkflowState::sessionPlanning), [](auto& s) { finishNow(s, soon); }),
              "A block is finished between its sessions, or with the review of one.");
    EXPECT_EQ(refused(stateIn(WorkflowState::breaking), [](auto& s) { finishNow(s, sampleReview(1), soon); }),
              "No session waits for its review.");
}

}  // namespace
}  // namespace quillmere::test
