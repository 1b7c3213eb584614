// Loading a state.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <chrono>

#include "support/file_system.hpp"
#include "support/json_members.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

StateStore storeAtMoment(const fs::path& directory)
{
    return StateStore(directory, StandingClock(moment), StateStore::renameReplacing);
}

void expectInitial(const QuillmereState& state, Instant updatedAt)
{
    QuillmereState expected = QuillmereState::initial(updatedAt);
    expected.id = state.id;
    EXPECT_EQ(state, expected);
}

std::string compact(const QuillmereState& state)
{
    return std::string(JsonEncoder(JsonLayout::compact).encode(state).view());
}

double secondsNow()
{
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TEST(StateStore, namesItsTwoFilesInItsDirectory)
{
    const StateStore store("/some/where", StateStore::renameReplacing);
    EXPECT_EQ(store.directory(), "/some/where");
    EXPECT_EQ(store.stateURL(), "/some/where/state.json");
    EXPECT_EQ(store.agentStateURL(), "/some/where/agent-state.json");
}

TEST(StateStore, touchesNoFileWhenItIsMade)
{
    const TemporaryDirectory directory;
    const StandingClock clock(moment);
    const StateStore store(directory.path() / "new", clock, StateStore::renameReplacing);
    EXPECT_TRUE(directory.names().empty());
    EXPECT_EQ(clock.readings(), 0);
}

TEST(Load, givesTheInitialStateAtTheClocksInstantFromAnEmptyDirectory)
{
    const TemporaryDirectory directory;
    const StandingClock clock(moment + 0.75);
    const StateStore store(directory.path(), clock, StateStore::renameReplacing);
    expectInitial(store.load(), moment + 0.75);
    EXPECT_EQ(clock.readings(), 1);
    EXPECT_TRUE(directory.names().empty());
}

TEST(Load, givesTheInitialStateFromADirectoryThatDoesNotExistAndCreatesNothing)
{
    const TemporaryDirectory directory;
    expectInitial(storeAtMoment(directory.path() / "missing" / "inner").load(), moment);
    EXPECT_TRUE(directory.names().empty());
}

TEST(Load, givesTheInitialStateBelowAFile)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "");
    expectInitial(storeAtMoment(directory.path() / "file").load(), moment);
}

TEST(Load, givesAnotherInitialStateEachTime)
{
    const TemporaryDirectory directory;
    const StateStore store = storeAtMoment(directory.path());
    EXPECT_NE(store.load().id, store.load().id);
}

TEST(Load, readsTheWallClockWhenNoOtherIsGiven)
{
    const TemporaryDirectory directory;
    const StateStore store(directory.path(), StateStore::renameReplacing);
    const double before = secondsNow();
    const double stamped = store.load().updatedAt.secondsSince1970();
    EXPECT_GE(stamped, before);
    EXPECT_LE(stamped, secondsNow());
}

TEST(Load, doesNotReadTheClockWhenThereIsAFile)
{
    const TemporaryDirectory directory;
    const StandingClock clock(moment);
    const StateStore store(directory.path(), clock, StateStore::renameReplacing);
    store.save(fullState());
    EXPECT_EQ(store.load(), fullState());
    EXPECT_EQ(clock.readings(), 0);
}

TEST(Load, readsTheFileAfreshEachTime)
{
    const TemporaryDirectory directory;
    const StateStore store = storeAtMoment(directory.path());
    store.save(fullState());
    store.load();
    writeText(store.stateURL(), compact(stateIn(WorkflowState::breaking)));
    EXPECT_EQ(store.load(), stateIn(WorkflowState::breaking));
    fs::remove(store.stateURL());
    expectInitial(store.load(), moment);
}

TEST(Load, needsNoOtherFileThanTheState)
{
    const TemporaryDirectory directory;
    const StateStore store = storeAtMoment(directory.path());
    writeText(store.stateURL(), compact(fullState()));
    writeText(store.agentStateURL(), "not JSON");
    writeText(directory.path() / ".state.json.9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10.tmp", "cut sho");
    EXPECT_EQ(store.load(), fullState());
}

TEST(Load, followsALinkToTheFile)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "elsewhere.json", compact(fullState()));
    fs::create_symlink("elsewhere.json", directory.path() / "state.json");
    EXPECT_EQ(storeAtMoment(directory.path()).load(), fullState());
}

TEST(Load, takesAStateWithoutAKeyOrRefusesItAsTheRecordSays)
{
    const TemporaryDirectory directory;
    const StateStore store = storeAtMoment(directory.path());
    constexpr struct {
        std::string_view key;
        bool isRequired;
    } rows[] = {
        {"id", false},
        {"workflow_state", true},
        {"current_block", false},
        {"block_history", true},
        {"planned_next_session", false},
        {"break_started_at", false},
        {"break_extension_seconds", true},
        {"break_end_notified_at", false},
        {"agent_questions", true},
        {"updated_at", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const std::string text = without(row.key, compact(fullState()));
        writeText(store.stateURL(), text);
        try {
            store.load();
            EXPECT_FALSE(row.isRequired);
        } catch (const DecodingError& error) {
            EXPECT_TRUE(row.isRequired);
            EXPECT_EQ(error.path(), row.key);
        }
        EXPECT_EQ(textOf(store.stateURL()), text);
    }
}

}  // namespace
}  // namespace quillmere::test
