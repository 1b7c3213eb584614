// A save that fails leaves each file complete, old or new, and no other files.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/extreme_numbers.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// A directory with the files of one state, and another state to replace it with.
class SaveFailure : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const StateStore usual{directory.path(), StateStore::renameReplacing};
    const QuillmereState oldState = stateIn(WorkflowState::breaking);
    const QuillmereState newState = fullState();
    std::string oldAgentText;

    void SetUp() override
    {
        usual.save(oldState);
        oldAgentText = textOf(usual.agentStateURL());
    }

    void expectFilesOf(const QuillmereState& state) const
    {
        EXPECT_EQ(directory.names(), (std::vector<std::string>{"agent-state.json", "state.json"}));
        EXPECT_EQ(usual.load(), state);
        EXPECT_EQ(textOf(usual.agentStateURL()), oldAgentText);
    }
};

TEST_F(SaveFailure, ofTheFirstReplacementLeavesBothFilesAndStopsThere)
{
    const RecordingReplaceItem replaceItem(1);
    EXPECT_THROW(StateStore(directory.path(), replaceItem).save(newState), InjectedFailure);
    EXPECT_EQ(replaceItem.calls().size(), 1u);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, ofTheSecondReplacementLeavesTheNewStateAndTheOldSummary)
{
    const RecordingReplaceItem replaceItem(2);
    EXPECT_THROW(StateStore(directory.path(), replaceItem).save(newState), InjectedFailure);
    EXPECT_EQ(replaceItem.calls().size(), 2u);
    expectFilesOf(newState);
}

TEST_F(SaveFailure, ofTheFirstSaveOfAllLeavesNoFile)
{
    const fs::path fresh = directory.path() / "fresh";
    EXPECT_THROW(StateStore(fresh, RecordingReplaceItem(1)).save(newState), InjectedFailure);
    EXPECT_TRUE(namesIn(fresh).empty());
}

TEST_F(SaveFailure, afterTheMoveLeavesTheNewFile)
{
    const auto moveAndFail = [](const fs::path& temporaryURL, const fs::path& destination) {
        StateStore::renameReplacing(temporaryURL, destination);
        throw InjectedFailure();
    };
    EXPECT_THROW(StateStore(directory.path(), moveAndFail).save(newState), InjectedFailure);
    expectFilesOf(newState);
}

TEST_F(SaveFailure, thatGoesUnreportedLeavesNoTemporaryFileEither)
{
    const auto forgetToMove = [](const fs::path&, const fs::path&) {};
    StateStore(directory.path(), forgetToMove).save(newState);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, passesOnTheException)
{
    const auto throwNumber = [](const fs::path&, const fs::path&) { throw 42; };
    EXPECT_THROW(StateStore(directory.path(), throwNumber).save(newState), int);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, inEncodingWritesNothing)
{
    const RecordingReplaceItem replaceItem;
    const StateStore store(directory.path(), replaceItem);
    QuillmereState state = newState;
    state.breakExtensionSeconds = notANumber;
    EXPECT_THROW(store.save(state), EncodingError);
    state = newState;
    state.updatedAt = Instant(1e15);
    EXPECT_THROW(store.save(state), EncodingError);
    EXPECT_TRUE(replaceItem.calls().empty());
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, inEncodingComesBeforeAnyOfTheFile)
{
    QuillmereState state = newState;
    state.breakExtensionSeconds = notANumber;
    const FileSizeLimit limit(0);
    EXPECT_THROW(usual.save(newState), std::system_error);
    EXPECT_THROW(usual.save(state), EncodingError);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, inEncodingSaysWhere)
{
    QuillmereState state = newState;
    state.blockHistory[0].sessions[1].plannedDurationSeconds = notANumber;
    try {
        usual.save(state);
        FAIL() << "nothing was thrown";
    } catch (const EncodingError& error) {
        EXPECT_EQ(error.path(), "block_history[0].sessions[1].planned_duration_seconds");
    }
}

TEST_F(SaveFailure, inEncodingTheSummaryAloneWritesNothing)
{
    EXPECT_THROW(usual.saveAgentSnapshot(stateIn(WorkflowState::idle), Instant(notANumber)), EncodingError);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, whenTheRoomEndsLeavesTheOldFiles)
{
    std::error_code error;
    {
        const FileSizeLimit limit(1000);
        error = failureOf([&] { usual.save(newState); });
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    expectFilesOf(oldState);
}

TEST_F(SaveFailure, ofTheMoveItselfLeavesADirectoryInTheWayAlone)
{
    const StateStore store(directory.path() / "other", StateStore::renameReplacing);
    fs::create_directories(store.stateURL());
    EXPECT_EQ(failureOf([&] { store.save(newState); }), std::errc::is_a_directory);
    EXPECT_EQ(namesIn(store.directory()), std::vector<std::string>{"state.json"});
    EXPECT_TRUE(fs::is_directory(store.stateURL()));
}

TEST_F(SaveFailure, ofTheSecondMoveLeavesTheNewStateBeside)
{
    const StateStore store(directory.path() / "other", StateStore::renameReplacing);
    fs::create_directories(store.agentStateURL());
    EXPECT_EQ(failureOf([&] { store.save(newState); }), std::errc::is_a_directory);
    EXPECT_EQ(namesIn(store.directory()), (std::vector<std::string>{"agent-state.json", "state.json"}));
    EXPECT_EQ(store.load(), newState);
}

TEST_F(SaveFailure, toCreateTheDirectoryTouchesNothing)
{
    writeText(directory.path() / "file", "kept");
    const StateStore there(directory.path() / "file", StateStore::renameReplacing);
    const StateStore below(directory.path() / "file" / "inner", StateStore::renameReplacing);
    EXPECT_EQ(failureOf([&] { there.save(newState); }), std::errc::file_exists);
    EXPECT_EQ(failureOf([&] { below.save(newState); }), std::errc::not_a_directory);
    EXPECT_EQ(failureOf([&] { there.saveAgentSnapshot(newState, moment); }), std::errc::file_exists);
    EXPECT_EQ(textOf(directory.path() / "file"), "kept");
}

TEST_F(SaveFailure, inADirectoryThatMayNotBeWrittenToLeavesTheOldFiles)
{
    std::error_code error;
    fs::permissions(directory.path(), fs::perms(0555));
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] { usual.save(newState); });
    }
    fs::permissions(directory.path(), fs::perms(0700));
    EXPECT_EQ(error, std::errc::permission_denied);
    expectFilesOf(oldState);
}

}  // namespace
}  // namespace quillmere::test
