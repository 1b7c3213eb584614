#include "amendments/possible.hpp"

#include "amendment_testing.hpp"

namespace quillmere::test {
namespace {

using Commands = std::vector<std::string_view>;

TEST(PossibleAmendments, followFromWhereTheWorkStands)
{
    using enum WorkflowState;
    struct Example {
        QuillmereState state;
        Commands commands;
    };
    const Example examples[] = {
        {stateIn(idle), {}},
        {stateWithScheduledBlock(), {}},
        {stateIn(blockPlanning), {"cancel"}},
        {stateIn(sessionPlanning), {"cancel", "change"}},
        {edited(stateIn(breaking), [](auto& s) { s.workflowState = sessionPlanning; }), {"finish", "change"}},
        {stateIn(focusing), {"change", "extend", "end --at", "away"}},
        {stateIn(sessionReview), {"review --finish", "change", "extend", "end --at"}},
        {stateIn(breaking), {"finish", "change"}},
        {stateIn(blockReview), {"change"}},
        {stateIn(complete), {"reset"}},
        {edited(stateIn(sessionReview), [](auto& s) { s.currentBlock->sessions.back().endedAt.reset(); }),
         {"review --finish", "change"}},
        {edited(stateIn(breaking), [](auto& s) { s.currentBlock.reset(); }), {}},
        {edited(stateIn(idle), [](auto& s) { s.blockHistory = {blockInWork(1, 3)}; }), {}},
    };
    for (const Example& example : examples) {
        EXPECT_EQ(amendments::possibleCommands(example.state), example.commands)
            << rawValue(example.state.workflowState);
    }
}

TEST(PossibleAmendments, fitRecordsOfThePast)
{
    using amendments::isPossible;
    using amendments::Kind;
    const QuillmereState state =
        edited(stateIn(WorkflowState::idle), [](auto& s) { s.blockHistory = {blockInWork(1, 3)}; });
    EXPECT_TRUE(isPossible(Kind::correct, state));
    EXPECT_TRUE(isPossible(Kind::deleteBlock, state));
    EXPECT_TRUE(isPossible(Kind::correct, stateIn(WorkflowState::breaking)));
    EXPECT_FALSE(isPossible(Kind::deleteBlock, stateIn(WorkflowState::breaking)));
    EXPECT_FALSE(isPossible(Kind::correct, stateIn(WorkflowState::focusing)));
}

}  // namespace
}  // namespace quillmere::test
