// Allocations that fail during a save or a load: every file is complete, old or new, and nothing is left
// over, on disk or in memory.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/failing_allocations.hpp"
#include "support/reported_failings.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

class StoreAllocations : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const StateStore store{directory.path(), StateStore::renameReplacing};
    const StateStore durable{directory.path(), StateStore::renameReplacingDurably};
    const QuillmereState oldState = stateIn(WorkflowState::breaking);
    const QuillmereState newState = fullState();
    std::string oldText;
    std::string oldAgentText;
    std::string newText;
    std::string newAgentText;

    void SetUp() override
    {
        store.save(newState);
        newText = textOf(store.stateURL());
        newAgentText = textOf(store.agentStateURL());
        store.save(oldState);
        oldText = textOf(store.stateURL());
        oldAgentText = textOf(store.agentStateURL());
    }

    /// Checks both files after a failure, and restores the old ones for the next.
    void expectWholeFiles(bool threw)
    {
        const std::string text = textOf(store.stateURL());
        const std::string agentText = textOf(store.agentStateURL());
        EXPECT_TRUE(text == oldText || text == newText) << text;
        EXPECT_TRUE(agentText == oldAgentText || agentText == newAgentText) << agentText;
        // Only a failure of the clean-up is not reported, after the work is done.
        EXPECT_TRUE(threw || agentText == newAgentText);
        EXPECT_EQ(directory.names(), (std::vector<std::string>{"agent-state.json", "state.json"}));
        writeText(store.stateURL(), oldText);
        writeText(store.agentStateURL(), oldAgentText);
    }
};

TEST_F(StoreAllocations, failingInASaveLeaveWholeFiles)
{
    for (const StateStore* used : {&store, &durable}) {
        const std::size_t blocks = blocksInUse();
        const std::size_t failures = failEveryAllocation([&] { used->save(newState); },
                                                         [&](bool threw) {
                                                             EXPECT_EQ(blocksInUse(), blocks);
                                                             expectWholeFiles(threw);
                                                         });
        EXPECT_GT(failures, 20u);
        EXPECT_EQ(textOf(store.stateURL()), newText);
        EXPECT_EQ(textOf(store.agentStateURL()), newAgentText);
    }
}

TEST_F(StoreAllocations, failingInASaveOfTheSummaryLeaveWholeFiles)
{
    const std::size_t blocks = blocksInUse();
    const std::size_t failures =
        failEveryAllocation([&] { store.saveAgentSnapshot(newState, newState.updatedAt); },
                            [&](bool threw) {
                                EXPECT_EQ(blocksInUse(), blocks);
                                EXPECT_EQ(textOf(store.stateURL()), oldText);
                                expectWholeFiles(threw);
                            });
    EXPECT_GT(failures, 20u);
    EXPECT_EQ(textOf(store.agentStateURL()), newAgentText);
}

TEST_F(StoreAllocations, failingInTheFirstSaveOfAllLeaveWholeFilesOrNone)
{
    const std::filesystem::path inner = directory.path() / "some" / "where";
    const StateStore first(inner, StateStore::renameReplacing);
    const std::size_t blocks = blocksInUse();
    failEveryAllocation([&] { first.save(newState); },
                        [&](bool) {
                            EXPECT_EQ(blocksInUse(), blocks);
                            for (const std::string& name : namesIn(inner)) {
                                EXPECT_EQ(textOf(inner / name),
                                          name == "state.json" ? newText : newAgentText);
                            }
                            std::filesystem::remove_all(directory.path() / "some");
                        });
    EXPECT_EQ(namesIn(inner), (std::vector<std::string>{"agent-state.json", "state.json"}));
}

TEST_F(StoreAllocations, failingInALoadAreReportedAndLeaveNothingBehind)
{
    store.save(newState);
    expectReportedFailings(
        20, [&] { EXPECT_EQ(store.load(), newState); }, parserAsksTwice);
    EXPECT_EQ(textOf(store.stateURL()), newText);
}

TEST_F(StoreAllocations, failingInALoadOfABrokenFileLeaveNothingBehind)
{
    // A refusal allocates for its message.
    std::string spoilt = newText;
    spoilt.replace(spoilt.find("\"energy\" : 4"), 12, "\"energy\" : \"\"");
    writeText(store.stateURL(), spoilt);
    expectReportedFailings(
        20,
        [&] {
            try {
                store.load();
                ADD_FAILURE() << "nothing was thrown";
            } catch (const DecodingError&) {
            }
        },
        parserAsksTwice);
}

TEST_F(StoreAllocations, failingInASummaryAreReportedAndLeaveNothingBehind)
{
    const AgentSnapshot expected = store.agentSnapshot(newState, moment);
    expectReportedFailings(20, [&] { EXPECT_EQ(store.agentSnapshot(newState, moment), expected); });
}

}  // namespace
}  // namespace quillmere::test
