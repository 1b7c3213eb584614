// Writing a new file.
#include <quillmere/store/file_manager.hpp>

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& path, std::string_view bytes)
{
    FileManager::standard().writeWithoutOverwriting(path, [&](const ByteSink& sink) { sink(bytes); });
}

TEST(WriteWithoutOverwriting, writesAllBytes)
{
    const TemporaryDirectory directory;
    const std::string texts[] = {"", "x", std::string("with\0zero", 9), std::string(3'000'000, 'a')};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.size());
        const fs::path file = directory.path() / std::to_string(text.size());
        write(file, text);
        EXPECT_TRUE(textOf(file) == text);
    }
}

TEST(WriteWithoutOverwriting, writesThePiecesInOrder)
{
    const TemporaryDirectory directory;
    FileManager::standard().writeWithoutOverwriting(directory.path() / "file", [](const ByteSink& sink) {
        for (const char* piece : {"one", "", " two", " three"}) {
            sink(piece);
        }
    });
    EXPECT_EQ(textOf(directory.path() / "file"), "one two three");
}

TEST(WriteWithoutOverwriting, passesOnTheExceptionOfTheContent)
{
    const TemporaryDirectory directory;
    const auto throwNumber = [](const ByteSink& sink) {
        sink("beginning");
        throw 42;
    };
    EXPECT_THROW(FileManager::standard().writeWithoutOverwriting(directory.path() / "file", throwNumber),
                 int);
}

TEST(WriteWithoutOverwriting, givesTheFileTheDefaultMode)
{
    const TemporaryDirectory directory;
    constexpr struct {
        mode_t mask;
        mode_t mode;
    } rows[] = {{0022, 0644}, {0077, 0600}, {0, 0666}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        const fs::path file = directory.path() / std::to_string(row.mode);
        {
            const FileCreationMask mask(row.mask);
            write(file, "text");
        }
        EXPECT_EQ(modeOf(file), row.mode);
    }
}

TEST(WriteWithoutOverwriting, failsWhenAnythingHasTheNameAndLeavesItAlone)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "old");
    fs::create_directory(directory.path() / "directory");
    fs::create_symlink("file", directory.path() / "link");
    fs::create_symlink("elsewhere", directory.path() / "dangling");
    makeFifo(directory.path() / "fifo");
    for (const char* name : {"file", "directory", "link", "dangling", "fifo"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(failureOf([&] { write(directory.path() / name, "new"); }), std::errc::file_exists);
    }
    EXPECT_EQ(textOf(directory.path() / "file"), "old");
    EXPECT_FALSE(fs::exists(directory.path() / "elsewhere"));
}

TEST(WriteWithoutOverwriting, failsWithoutTheDirectory)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "");
    EXPECT_EQ(failureOf([&] { write(directory.path() / "missing" / "new", "text"); }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(failureOf([&] { write(directory.path() / "file" / "new", "text"); }),
              std::errc::not_a_directory);
    EXPECT_EQ(failureOf([&] { write("", "text"); }), std::errc::no_such_file_or_directory);
}

TEST(WriteWithoutOverwriting, failsForANameThatIsTooLong)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(failureOf([&] { write(directory.path() / std::string(300, 'n'), "text"); }),
              std::errc::filename_too_long);
}

TEST(WriteWithoutOverwriting, failsInADirectoryThatMayNotBeWrittenTo)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0555));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] { write(directory.path() / "new", "text"); });
    }
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_TRUE(directory.names().empty());
}

TEST(WriteWithoutOverwriting, failsWhenTheRoomEndsInTheMiddle)
{
    const TemporaryDirectory directory;
    std::error_code error;
    {
        const FileSizeLimit limit(1000);
        error = failureOf([&] { write(directory.path() / "new", std::string(5000, 'a')); });
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_LE(fs::file_size(directory.path() / "new"), 1000u);
}

TEST(WriteWithoutOverwriting, saysWhichFileCouldNotBeWritten)
{
    const TemporaryDirectory directory;
    try {
        write(directory.path() / "missing" / "new", "text");
        FAIL() << "nothing was thrown";
    } catch (const fs::filesystem_error& error) {
        EXPECT_EQ(error.path1(), directory.path() / "missing" / "new");
    }
}

TEST(WriteWithoutOverwriting, leavesNoFileOpen)
{
    const TemporaryDirectory directory;
    const std::size_t before = openFileCount();
    write(directory.path() / "new", "text");
    failureOf([&] { write(directory.path() / "new", "text"); });
    {
        const FileSizeLimit limit(1000);
        failureOf([&] { write(directory.path() / "other", std::string(5000, 'a')); });
    }
    EXPECT_EQ(openFileCount(), before);
}

}  // namespace
}  // namespace quillmere::test
