// Reading a file, and refusing what is not a regular file.
#include <quillmere/store/file_manager.hpp>

#include <gtest/gtest.h>

#include "store_testing.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& path) { return std::string(files().contents(path).view()); }

/// Bytes of all values, so that every byte that could end a text or a line is among them.
std::string everyByte(std::size_t count)
{
    std::string bytes;
    for (std::size_t index = 0; index < count; ++index) {
        bytes.push_back(static_cast<char>(index % 251));
    }
    return bytes;
}

TEST(Contents, areAllBytesOfTheFile)
{
    const TemporaryDirectory directory;
    constexpr std::size_t page = 4096;
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, page - 1, page, page + 1, 700 * page + 3}) {
        SCOPED_TRACE(size);
        const fs::path file = directory.path() / std::to_string(size);
        writeText(file, everyByte(size));
        EXPECT_TRUE(contentsOf(file) == everyByte(size));
    }
}

TEST(Contents, takeRoomForTheFileAndHardlyMore)
{
    // The file of many years is large; a growing buffer would copy it and need its memory twice.
    const TemporaryDirectory directory;
    constexpr std::size_t size = 1'000'000;
    writeText(directory.path() / "file", everyByte(size));
    EXPECT_LT(files().contents(directory.path() / "file").capacity(), size + size / 10);
}

TEST(Contents, areReadToTheEndEvenIfTheSizeIsWrong)
{
    const fs::path file = "/proc/self/status";
    if (!fs::exists(file)) {
        GTEST_SKIP() << "no file here has a content and the size 0";
    }
    EXPECT_EQ(contentsOf(file).substr(0, 5), "Name:");
}

TEST(Contents, followLinks)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "text");
    fs::create_symlink("file", directory.path() / "link");
    EXPECT_EQ(contentsOf(directory.path() / "link"), "text");
}

TEST(Contents, failWhenTheFileIsMissing)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "text");
    fs::create_symlink("missing", directory.path() / "link");
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "missing"); }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "link"); }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "file" / "below"); }),
              std::errc::not_a_directory);
}

TEST(Contents, failForADirectory)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path()); }), std::errc::is_a_directory);
}

TEST(Contents, failForAFifoWithoutWaitingForAWriter)
{
    const TemporaryDirectory directory;
    makeFifo(directory.path() / "fifo");
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "fifo"); }), std::errc::invalid_argument);
}

TEST(Contents, failForASocket)
{
    const TemporaryDirectory directory;
    makeSocket(directory.path() / "socket");
    EXPECT_TRUE(failureOf([&] { contentsOf(directory.path() / "socket"); }));
}

TEST(Contents, failForADevice)
{
    // Reading the first ends at once, reading the second never ends.
    EXPECT_EQ(failureOf([] { contentsOf("/dev/null"); }), std::errc::invalid_argument);
    EXPECT_EQ(failureOf([] { contentsOf("/dev/zero"); }), std::errc::invalid_argument);
}

TEST(Contents, failForLinksThatLeadInACircle)
{
    const TemporaryDirectory directory;
    makeLinkLoop(directory.path() / "loop");
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "loop"); }),
              std::errc::too_many_symbolic_link_levels);
}

TEST(Contents, failWhenReadingIsForbidden)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0777));
    writeText(directory.path() / "file", "text");
    fs::permissions(directory.path() / "file", fs::perms(0));
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    EXPECT_EQ(failureOf([&] { contentsOf(directory.path() / "file"); }), std::errc::permission_denied);
}

TEST(Contents, sayWhichFileCouldNotBeRead)
{
    const TemporaryDirectory directory;
    const fs::path missing = directory.path() / "missing";
    try {
        contentsOf(missing);
        FAIL() << "nothing was thrown";
    } catch (const fs::filesystem_error& error) {
        EXPECT_EQ(error.path1(), missing);
    }
}

TEST(Contents, leaveNoFileOpen)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "text");
    makeFifo(directory.path() / "fifo");
    const std::size_t before = openFileCount();
    contentsOf(directory.path() / "file");
    failureOf([&] { contentsOf(directory.path() / "fifo"); });
    failureOf([&] { contentsOf(directory.path()); });
    EXPECT_EQ(openFileCount(), before);
}

}  // namespace
}  // namespace quillmere::test
