// The two replaceItem operations of the StateStore.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

struct NamedReplaceItem {
    const char* name;
    void (*replaceItem)(const fs::path&, const fs::path&);
};

/// The tests for both.
class ReplaceItemTest : public testing::TestWithParam<NamedReplaceItem> {
protected:
    const TemporaryDirectory directory;
    const fs::path temporary = directory.path() / "temporary";
    const fs::path destination = directory.path() / "destination";

    static void replace(const fs::path& from, const fs::path& to) { GetParam().replaceItem(from, to); }
    static std::error_code failure(const fs::path& from, const fs::path& to)
    {
        return failureOf([&] { replace(from, to); });
    }
};

INSTANTIATE_TEST_SUITE_P(StateStore, ReplaceItemTest,
                         testing::Values(NamedReplaceItem{"renameReplacing", &StateStore::renameReplacing},
                                         NamedReplaceItem{"renameReplacingDurably",
                                                          &StateStore::renameReplacingDurably}),
                         [](const auto& information) { return information.param.name; });

TEST_P(ReplaceItemTest, movesTheFileToANameThatIsFree)
{
    writeText(temporary, "new");
    replace(temporary, destination);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"destination"});
    EXPECT_EQ(textOf(destination), "new");
}

TEST_P(ReplaceItemTest, replacesAnExistingFile)
{
    writeText(temporary, "new");
    writeText(destination, "old");
    replace(temporary, destination);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"destination"});
    EXPECT_EQ(textOf(destination), "new");
}

TEST_P(ReplaceItemTest, leavesReadersOfTheOldFileTheirFile)
{
    writeText(temporary, "new");
    writeText(destination, "old");
    fs::create_hard_link(destination, directory.path() / "other name");
    replace(temporary, destination);
    EXPECT_EQ(textOf(directory.path() / "other name"), "old");
}

TEST_P(ReplaceItemTest, failsWithoutTheTemporaryFileAndLeavesTheOldOne)
{
    writeText(destination, "old");
    EXPECT_EQ(failure(temporary, destination), std::errc::no_such_file_or_directory);
    EXPECT_EQ(textOf(destination), "old");
}

TEST_P(ReplaceItemTest, failsOverADirectory)
{
    writeText(temporary, "new");
    fs::create_directory(destination);
    EXPECT_EQ(failure(temporary, destination), std::errc::is_a_directory);
    EXPECT_EQ(textOf(temporary), "new");
    EXPECT_TRUE(fs::is_directory(destination));
}

TEST_P(ReplaceItemTest, failsInADirectoryThatIsMissing)
{
    writeText(temporary, "new");
    EXPECT_EQ(failure(temporary, directory.path() / "missing" / "destination"),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(textOf(temporary), "new");
}

TEST_P(ReplaceItemTest, failsBelowAFile)
{
    writeText(temporary, "new");
    writeText(directory.path() / "file", "kept");
    EXPECT_EQ(failure(temporary, directory.path() / "file" / "destination"), std::errc::not_a_directory);
    EXPECT_EQ(textOf(temporary), "new");
    EXPECT_EQ(textOf(directory.path() / "file"), "kept");
}

TEST_P(ReplaceItemTest, takesRelativePaths)
{
    const CurrentDirectory current(directory.path());
    writeText("temporary", "new");
    replace("temporary", "destination");
    EXPECT_EQ(directory.names(), std::vector<std::string>{"destination"});
}

TEST_P(ReplaceItemTest, leavesNoFileOpen)
{
    const std::size_t before = openFileCount();
    writeText(temporary, "new");
    replace(temporary, destination);
    failure(temporary, destination);
    EXPECT_EQ(openFileCount(), before);
}

TEST(RenameReplacing, reportsTheCodeWithoutATextOfItsOwn)
{
    const TemporaryDirectory directory;
    try {
        StateStore::renameReplacing(directory.path() / "missing", directory.path() / "destination");
        FAIL() << "nothing was thrown";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.what(), error.code().message());
    }
}

TEST(RenameReplacingDurably, failsBeforeTheMoveWhenTheFileCannotBeSynced)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0777));
    writeText(directory.path() / "temporary", "new");
    writeText(directory.path() / "destination", "old");
    fs::permissions(directory.path() / "temporary", fs::perms(0));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] {
            StateStore::renameReplacingDurably(directory.path() / "temporary",
                                               directory.path() / "destination");
        });
    }
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_EQ(directory.names(), (std::vector<std::string>{"destination", "temporary"}));
    EXPECT_EQ(textOf(directory.path() / "destination"), "old");
}

TEST(RenameReplacingDurably, movesTheFileWhereTheDirectoryMayNotBeOpenedToSyncIt)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "temporary", "new");
    writeText(directory.path() / "destination", "old");
    // Search and write permission only: a sync must open the directory for reading.
    fs::permissions(directory.path(), fs::perms(0333));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] {
            StateStore::renameReplacingDurably(directory.path() / "temporary",
                                               directory.path() / "destination");
        });
    }
    fs::permissions(directory.path(), fs::perms(0700));
    EXPECT_FALSE(error);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"destination"});
    EXPECT_EQ(textOf(directory.path() / "destination"), "new");
}

}  // namespace
}  // namespace quillmere::test
