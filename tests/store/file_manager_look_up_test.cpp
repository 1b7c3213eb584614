// Whether a file exists, and removing it.
#include <quillmere/store/file_manager.hpp>

#include <gtest/gtest.h>

#include "store_testing.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

TEST(FileExists, isTrueForAnythingOfAnyKind)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "");
    fs::create_directory(directory.path() / "directory");
    makeFifo(directory.path() / "fifo");
    makeSocket(directory.path() / "socket");
    makeLinkLoop(directory.path() / "loop");
    for (const char* name : {"file", "directory", "fifo", "socket", "loop"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(files().fileExists(directory.path() / name));
    }
}

TEST(FileExists, isFalseForAMissingName)
{
    const TemporaryDirectory directory;
    EXPECT_FALSE(files().fileExists(directory.path() / "missing"));
    EXPECT_FALSE(files().fileExists(directory.path() / "missing" / "below"));
    EXPECT_FALSE(files().fileExists(""));
}

TEST(FileExists, isFalseBelowAFile)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "");
    EXPECT_FALSE(files().fileExists(directory.path() / "file" / "below"));
}

TEST(FileExists, isTrueForALinkThatLeadsNowhere)
{
    const TemporaryDirectory directory;
    fs::create_symlink("missing", directory.path() / "link");
    EXPECT_TRUE(files().fileExists(directory.path() / "link"));
}

TEST(FileExists, failsWhenTheLookUpIsForbidden)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0777));
    const fs::path locked = directory.path() / "locked";
    fs::create_directory(locked);
    fs::permissions(locked, fs::perms(0));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] { files().fileExists(locked / "file"); });
    }
    fs::permissions(locked, fs::perms(0700));
    EXPECT_EQ(error, std::errc::permission_denied);
}

TEST(FileExists, failsWhenTheLookUpCannotBeMade)
{
    const TemporaryDirectory directory;
    makeLinkLoop(directory.path() / "loop");
    EXPECT_EQ(failureOf([&] { files().fileExists(directory.path() / "loop" / "below"); }),
              std::errc::too_many_symbolic_link_levels);
    EXPECT_EQ(failureOf([&] { files().fileExists(directory.path() / std::string(300, 'n')); }),
              std::errc::filename_too_long);
}

TEST(RemoveFile, removesTheFileAlone)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "first", "");
    writeText(directory.path() / "second", "");
    files().removeFile(directory.path() / "first");
    EXPECT_EQ(directory.names(), std::vector<std::string>{"second"});
}

TEST(RemoveFile, removesALinkAndNotItsTarget)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "kept");
    fs::create_symlink("file", directory.path() / "link");
    files().removeFile(directory.path() / "link");
    EXPECT_EQ(directory.names(), std::vector<std::string>{"file"});
    EXPECT_EQ(textOf(directory.path() / "file"), "kept");
}

TEST(RemoveFile, failsWhenThereIsNone)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(failureOf([&] { files().removeFile(directory.path() / "missing"); }),
              std::errc::no_such_file_or_directory);
}

TEST(RemoveFile, removesNoDirectory)
{
    const TemporaryDirectory directory;
    const fs::path inner = directory.path() / "inner";
    fs::create_directory(inner);
    EXPECT_TRUE(failureOf([&] { files().removeFile(inner); }));
    EXPECT_TRUE(fs::is_directory(inner));
}

}  // namespace
}  // namespace quillmere::test
