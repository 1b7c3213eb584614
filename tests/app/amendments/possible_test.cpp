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
        {edited(stateIn(breaking), [](auto& s) { s.workflowState = sessionPlanning; }),
         {"finish", "change", "amend"}},
        {stateIn(focusing), {"change", "extend", "end --at", "away"}},
        {stateIn(sessionReview), {"review --finish", "change", "extend", "end --at", "amend"}},
        {stateIn(breaking), {"finish", "change", "amend"}},
        {stateIn(blockReview), {"change", "amend"}},
        {stateIn(complete), {"reset"}},
        {edited(stateIn(sessionReview), [](auto& s) { s.currentBlock->sessions.back().endedAt.reset(); }),
         {"review --finish", "change"}},
        {edited(stateIn(breaking), [](auto& s) { s.currentBlock.reset(); }), {}},
        {edited(stateIn(idle), [](auto& s) { s.blockHistory = {blockInWork(1, 3)}; }), {"amend", "delete"}},
    };
    for (const Example& example : examples) {
        EXPECT_EQ(amendments::possibleCommands(example.state), example.commands)
            << rawValue(example.state.workflowState);
    }
}

TEST(PossibleAmendments, ofThePresentAreNoneOfRecords)
{
    EXPECT_EQ(amendments::possibleCommandsOfPresent(stateIn(WorkflowState::breaking)),
              (Commands{"finish", "change"}));
    EXPECT_EQ(amendments::possibleCommandsOfPresent(edited(
                  stateIn(WorkflowState::idle), [](auto& s) { s.blockHistory = {blockInWork(1, 3)}; })),
              Commands{});
}

}  // namespace
}  // namespace quillmere::test
