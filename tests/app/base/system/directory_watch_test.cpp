#include "base/system/directory_watch.hpp"

#include "base/system/wait.hpp"

#include <array>
#include <cerrno>
#include <chrono>
#include <functional>
#include <utility>
#include <vector>

#include "program_testing.hpp"
#include "refused_inotify.hpp"
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

TEST(DirectoryWatch, comparesTheEntriesWhereTheSystemOffersNoMoreWatches)
{
    const std::vector<std::pair<int, int>> errorsOfInitAndAdd = {
        {EMFILE, 0}, {ENFILE, 0}, {ENOSYS, 0}, {0, ENOSPC}};
    for (const auto& [errorOfInit, errorOfAdd] : errorsOfInitAndAdd) {
        SCOPED_TRACE(errorOfInit);
        const TemporaryDirectory above;
        const fs::path directory = above.path() / "files";
        const fs::path file = directory / "file";
        const RefusedInotify refused(errorOfInit, errorOfAdd);
        DirectoryWatch watch(directory);
        EXPECT_EQ(watch.descriptor(), -1);
        EXPECT_NE(watch.trouble().find(directory.string()), std::string::npos) << watch.trouble();
        EXPECT_FALSE(watch.takeChanges());
        const std::vector<std::function<void()>> changes = {
            [&] { fs::create_directory(directory); },
            [&] { writeText(file, "one"); },
            [&] { writeText(file, "three"); },
            [&] { writeText(directory / "other", "three"); },
            [&] { fs::rename(directory / "other", file); },
            [&] { fs::permissions(file, fs::perms(0600)); },
            [&] { fs::remove(file); },
            [&] { fs::remove(directory); },
        };
        for (std::size_t change = 0; change < changes.size(); ++change) {
            SCOPED_TRACE(change);
            changes[change]();
            EXPECT_TRUE(watch.takeChanges());
            EXPECT_FALSE(watch.takeChanges());
        }
    }
}

TEST(DirectoryWatch, comparesTheEntriesFromThenOnWhenWatchesRunOutLater)
{
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "files";
    DirectoryWatch watch(directory);
    EXPECT_EQ(watch.trouble(), "");
    const RefusedInotify refused(0, ENOSPC);
    fs::create_directory(directory);
    EXPECT_TRUE(watch.takeChanges());
    EXPECT_NE(watch.trouble(), "");
    EXPECT_EQ(watch.descriptor(), -1);
    EXPECT_FALSE(watch.takeChanges());
    writeText(directory / "file", "one");
    EXPECT_TRUE(watch.takeChanges());
}

TEST(DirectoryWatch, failsWhenWatchingFailsForAnotherReason)
{
    const TemporaryDirectory directory;
    for (const auto& [errorOfInit, errorOfAdd] : {std::pair(EINVAL, 0), std::pair(0, EPERM)}) {
        const RefusedInotify refused(errorOfInit, errorOfAdd);
        EXPECT_TRUE(failureOf([&] { const DirectoryWatch watch(directory.path()); }));
    }
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
