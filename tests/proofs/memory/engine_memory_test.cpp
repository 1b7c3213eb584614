// Allocation failures in the engine: std::bad_alloc, and an unchanged state.
#include <quillmere/engine/workflow_engine.hpp>

#include "../../engine/engine_testing.hpp"
#include "../../engine/workflow_map.hpp"
#include "running_out.hpp"

namespace quillmere::test {
namespace {

/// Spare capacity of every list. An operation that finds spare capacity allocates less.
constexpr std::size_t rooms[] = {0, 1, 8};

void makeRoom(QuillmereState& state, std::size_t room)
{
    state.blockHistory.reserve(state.blockHistory.size() + room);
    state.agentQuestions.reserve(state.agentQuestions.size() + room);
    if (state.currentBlock) {
        state.currentBlock->sessions.reserve(state.currentBlock->sessions.size() + room);
    }
}

/// Fails each allocation of one operation, accepted or refused, and finally lets it succeed.
Tally runOutInWalking(const Arrow& arrow, WorkflowState workflowState, std::size_t room)
{
    QuillmereState state = startOf(arrow, workflowState);
    makeRoom(state, room);
    const QuillmereState before = state;
    QuillmereState undisturbed = state;
    const auto expected = refusalOf([&] { arrow.walk(undisturbed, now); });
    std::optional<WorkflowError::Case> refusal;
    const Tally tally = runOutIn([&] { refusal = refusalOf([&] { arrow.walk(state, now); }); },
                                 [&](bool threw) { return threw && state == before; });
    EXPECT_EQ(refusal, expected);
    EXPECT_EQ(state.workflowState, undisturbed.workflowState);
    EXPECT_EQ(state.updatedAt, undisturbed.updatedAt);
    return tally;
}

TEST(MemoryRunningOut, inTheEngineLeavesTheStateAsItWas)
{
    Tally tally;
    for (const Arrow& arrow : arrows()) {
        for (const WorkflowState workflowState : allCases<WorkflowState>()) {
            for (const std::size_t room : rooms) {
                SCOPED_TRACE(nameOf(arrow) + " in " + std::string(rawValue(workflowState)));
                tally += runOutInWalking(arrow, workflowState, room);
            }
        }
    }
    constexpr std::size_t atLeast = 500;
    expectWhole("engine", tally, atLeast);
}

}  // namespace
}  // namespace quillmere::test
