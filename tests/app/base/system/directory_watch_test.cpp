#include "base/system/directory_watch.hpp"

#include "base/system/wait.hpp"

#include <array>
#include <chrono>

#include "program_testing.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using base::DirectoryWatch;

/// The kernel reports a change before the call that makes it returns, so no test has to wait.
bool isReadable(const DirectoryWatch& watch)
{
    std::array<base::PollSource, 1> sources = {{{watch.descriptor()}}};
    return base::waitFor(sources, std::chrono::seconds(0));
}

TEST(DirectoryWatch, isQuietWhileNothingChanges)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "one");
    DirectoryWatch watch(directory.path());
    EXPECT_EQ(textOf(directory.path() / "file"), "one");
    EXPECT_FALSE(isReadable(watch));
    EXPECT_FALSE(watch.takeChanges());
}

TEST(DirectoryWatch, reportsEachChangeOnce)
{
    const TemporaryDirectory directory;
    const fs::path file = directory.path() / "file";
    DirectoryWatch watch(directory.path());
    const std::vector<std::function<void()>> changes = {
        [&] { writeText(file, "one"); },
        [&] { fs::rename(file, directory.path() / "other"); },
        [&] { fs::remove(directory.path() / "other"); },
    };
    for (const auto& change : changes) {
        change();
        EXPECT_TRUE(isReadable(watch));
        EXPECT_TRUE(watch.takeChanges());
        EXPECT_FALSE(watch.takeChanges());
    }
}

TEST(DirectoryWatch, watchesADirectoryThatIsMadeLater)
{
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "one" / "two";
    DirectoryWatch watch(directory);
    fs::create_directories(directory);
    EXPECT_TRUE(watch.takeChanges());
    writeText(directory / "file", "one");
    EXPECT_TRUE(watch.takeChanges());
}

TEST(DirectoryWatch, watchesADirectoryThatIsDeletedAndMadeAgain)
{
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "files";
    fs::create_directory(directory);
    DirectoryWatch watch(directory);
    fs::remove(directory);
    EXPECT_TRUE(watch.takeChanges());
    fs::create_directory(directory);
    EXPECT_TRUE(watch.takeChanges());
    writeText(directory / "file", "one");
    EXPECT_TRUE(watch.takeChanges());
}

TEST(DirectoryWatch, watchesAnotherDirectoryThatTakesTheName)
{
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "files";
    fs::create_directory(directory);
    DirectoryWatch watch(directory);
    fs::rename(directory, above.path() / "old");
    fs::create_directory(directory);
    EXPECT_TRUE(watch.takeChanges());
    writeText(directory / "file", "one");
    EXPECT_TRUE(watch.takeChanges());
}

TEST(DirectoryWatch, watchesADirectoryOnceItMayBeRead)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions do not bind this user";
    }
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "one";
    fs::create_directory(directory);
    fs::permissions(directory, fs::perms::owner_exec | fs::perms::owner_write);
    DirectoryWatch watch(directory);
    fs::permissions(directory, fs::perms::owner_all);
    EXPECT_TRUE(watch.takeChanges());
    writeText(directory / "file", "one");
    EXPECT_TRUE(watch.takeChanges());
    fs::permissions(directory, fs::perms::none);
    EXPECT_TRUE(watch.takeChanges());
    fs::permissions(directory, fs::perms::owner_all);
    EXPECT_TRUE(watch.takeChanges());
    writeText(directory / "file", "two");
    EXPECT_TRUE(watch.takeChanges());
}

TEST(DirectoryWatch, leavesNoDescriptorBehind)
{
    const TemporaryDirectory directory;
    const std::size_t before = openFileCount();
    {
        const DirectoryWatch watch(directory.path());
    }
    EXPECT_EQ(openFileCount(), before);
}

}  // namespace
}  // namespace quillmere::test
