// The three files, byte by byte: existing files must stay readable, and so must the files for agents and
// widgets.
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere {
namespace {

std::string golden(const std::string& name)
{
    return test::textOf(std::filesystem::path(QUILLMERE_GOLDEN_DIRECTORY) / name);
}

AgentSnapshot agentSnapshot(const QuillmereState& state)
{
    return StateStore("unused", {}).agentSnapshot(state, state.updatedAt);
}

TEST(GoldenState, isWhatIsWritten)
{
    EXPECT_EQ(StateStore::encoder().encode(test::fullState()).view(), golden("state.json"));
}

TEST(GoldenState, isReadBackToTheSameRecord)
{
    EXPECT_EQ(test::decoded<QuillmereState>(golden("state.json")), test::fullState());
}

TEST(GoldenAgentState, isWhatIsWritten)
{
    EXPECT_EQ(StateStore::encoder().encode(agentSnapshot(test::fullState())).view(),
              golden("agent-state.json"));
}

TEST(GoldenAgentState, isReadBackToTheSameRecord)
{
    EXPECT_EQ(test::decoded<AgentSnapshot>(golden("agent-state.json")), agentSnapshot(test::fullState()));
}

TEST(GoldenWidgetSnapshot, isWhatIsWritten)
{
    const QuillmereState state = test::fullState();
    EXPECT_EQ(test::compactText(WidgetSnapshot::make(state, state.updatedAt)),
              golden("widget-snapshot.json"));
}

TEST(GoldenWidgetSnapshot, isReadBackToTheSameRecordOfWholeSeconds)
{
    const QuillmereState state = test::fullState();
    WidgetSnapshot expected = WidgetSnapshot::make(state, state.updatedAt);
    // The pauses add up to 42.5 seconds; half a second is lost in the file.
    EXPECT_EQ(expected.countdown->startedAt, test::moment + 42.5);
    expected.countdown->startedAt = test::moment + 42;
    EXPECT_EQ(test::decoded<WidgetSnapshot>(golden("widget-snapshot.json")), expected);
}

TEST(GoldenFiles, areTheFilesThatTheStoresWrite)
{
    const test::TemporaryDirectory directory;
    const QuillmereState state = test::fullState();
    StateStore(directory.path(), StateStore::renameReplacing).save(state);
    WidgetSnapshotStore(directory.path()).save(WidgetSnapshot::make(state, state.updatedAt));
    for (const char* name : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(test::textOf(directory.path() / name), golden(name));
    }
}

}  // namespace
}  // namespace quillmere
