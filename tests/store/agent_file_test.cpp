// Writing the agent's summary alone.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

AgentSnapshot readFrom(const StateStore& store)
{
    return StateStore::decoder().decode<AgentSnapshot>(
        FileManager::standard().contents(store.agentStateURL()));
}

TEST(SaveAgentSnapshot, writesTheSummaryAtTheInstantGivenAndNoOtherFile)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    const QuillmereState state = stateIn(WorkflowState::focusing);
    store.saveAgentSnapshot(state, moment + 77);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"agent-state.json"});
    EXPECT_EQ(readFrom(store), store.agentSnapshot(state, moment + 77));
    EXPECT_EQ(readFrom(store).remainingSeconds, 1423);
}

TEST(SaveAgentSnapshot, createsTheDirectoryForItsOwnerAlone)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path() / "new", StateStore::renameReplacing);
    {
        const FileCreationMask mask(0022);
        store.saveAgentSnapshot(fullState(), moment);
    }
    EXPECT_EQ(modeOf(directory.path() / "new"), 0700u);
}

TEST(SaveAgentSnapshot, replacesTheOldSummary)
{
    const TemporaryDirectory directory;
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    store.saveAgentSnapshot(fullState(), moment);
    store.saveAgentSnapshot(stateIn(WorkflowState::idle), moment + 1);
    EXPECT_EQ(readFrom(store), store.agentSnapshot(stateIn(WorkflowState::idle), moment + 1));
    ASSERT_EQ(replaceItem.calls().size(), 2u);
    EXPECT_EQ(replaceItem.calls()[1].destination, store.agentStateURL());
    EXPECT_EQ(replaceItem.calls()[1].content, textOf(store.agentStateURL()));
}

TEST(SaveAgentSnapshot, isTheLastStepOfASaveOfTheState)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        store.save(stateIn(workflowState));
        const std::string saved = textOf(store.agentStateURL());
        store.saveAgentSnapshot(stateIn(workflowState), stateIn(workflowState).updatedAt);
        EXPECT_EQ(textOf(store.agentStateURL()), saved);
    }
}

TEST(SaveAgentSnapshot, keepsTheOldSummaryWhenItFails)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    store.saveAgentSnapshot(fullState(), moment);
    const std::string before = textOf(store.agentStateURL());
    EXPECT_THROW(
        StateStore(directory.path(), RecordingReplaceItem(1)).saveAgentSnapshot(fullState(), moment + 5),
        InjectedFailure);
    EXPECT_EQ(textOf(store.agentStateURL()), before);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"agent-state.json"});
}

}  // namespace
}  // namespace quillmere::test
