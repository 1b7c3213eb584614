// A state file that exists but cannot be used is an error, never an initial state; the file is unchanged.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

class LoadFailure : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const StateStore store{directory.path(), StateStore::renameReplacing};

    std::error_code failure() const
    {
        return failureOf([&] { store.load(); });
    }
};

TEST_F(LoadFailure, isTheDecodersErrorForAnEmptyFile)
{
    writeText(store.stateURL(), "");
    EXPECT_THROW(store.load(), DecodingError);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"state.json"});
    EXPECT_EQ(textOf(store.stateURL()), "");
}

TEST_F(LoadFailure, isTheDecodersErrorForAFileCutShortAndLeavesItAsItIs)
{
    store.save(fullState());
    const std::string whole = textOf(store.stateURL());
    for (const std::size_t length : {std::size_t{1}, whole.size() / 2, whole.size() - 1}) {
        SCOPED_TRACE(length);
        writeText(store.stateURL(), whole.substr(0, length));
        EXPECT_THROW(store.load(), DecodingError);
        EXPECT_EQ(textOf(store.stateURL()), whole.substr(0, length));
    }
}

TEST_F(LoadFailure, saysWhereInTheFile)
{
    store.save(fullState());
    std::string text = textOf(store.stateURL());
    text.replace(text.find("\"energy\" : 4"), 12, "\"energy\" : \"\"");
    writeText(store.stateURL(), text);
    try {
        store.load();
        FAIL() << "nothing was thrown";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.path(), "block_history[0].sessions[0].plan.energy");
        EXPECT_EQ(error.found(), "\"\"");
    }
}

TEST_F(LoadFailure, isAReadErrorForADirectoryInPlaceOfTheFile)
{
    fs::create_directory(store.stateURL());
    EXPECT_EQ(failure(), std::errc::is_a_directory);
}

TEST_F(LoadFailure, isAReadErrorForAFifoInPlaceOfTheFile)
{
    makeFifo(store.stateURL());
    EXPECT_EQ(failure(), std::errc::invalid_argument);
}

TEST_F(LoadFailure, isAReadErrorForADeviceInPlaceOfTheFile)
{
    fs::create_symlink("/dev/null", store.stateURL());
    EXPECT_EQ(failure(), std::errc::invalid_argument);
}

TEST_F(LoadFailure, isAReadErrorForALinkThatLeadsNowhere)
{
    fs::create_symlink("missing", store.stateURL());
    EXPECT_EQ(failure(), std::errc::no_such_file_or_directory);
}

TEST_F(LoadFailure, isAReadErrorForLinksThatLeadInACircle)
{
    makeLinkLoop(store.stateURL());
    EXPECT_EQ(failure(), std::errc::too_many_symbolic_link_levels);
}

TEST_F(LoadFailure, isAReadErrorForAFileThatMayNotBeRead)
{
    fs::permissions(directory.path(), fs::perms(0777));
    writeText(store.stateURL(), "");
    fs::permissions(store.stateURL(), fs::perms(0));
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    EXPECT_EQ(failure(), std::errc::permission_denied);
}

TEST_F(LoadFailure, isALookUpErrorInADirectoryThatMayNotBeSearched)
{
    fs::permissions(directory.path(), fs::perms(0));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failure();
    }
    fs::permissions(directory.path(), fs::perms(0700));
    EXPECT_EQ(error, std::errc::permission_denied);
}

}  // namespace
}  // namespace quillmere::test
