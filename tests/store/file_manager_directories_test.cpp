// Creating directories.
#include <quillmere/store/file_manager.hpp>

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ownerOnly = 0700;

void create(const fs::path& path, std::optional<mode_t> mode = std::nullopt)
{
    FileManager::standard().createDirectory(path, mode);
}

TEST(CreateDirectory, setsTheModeForAnyUmask)
{
    const TemporaryDirectory directory;
    for (const mode_t umask : {0u, 0022u, 0077u, 0277u, 0777u}) {
        SCOPED_TRACE(umask);
        const fs::path created = directory.path() / std::to_string(umask);
        {
            const FileCreationMask mask(umask);
            create(created, ownerOnly);
        }
        EXPECT_EQ(modeOf(created), ownerOnly);
    }
}

TEST(CreateDirectory, givesTheDefaultModeWhenNoneIsAskedFor)
{
    const TemporaryDirectory directory;
    {
        const FileCreationMask mask(0027);
        create(directory.path() / "created");
    }
    EXPECT_EQ(modeOf(directory.path() / "created"), 0750u);
}

TEST(CreateDirectory, givesMissingParentsTheDefaultMode)
{
    const TemporaryDirectory directory;
    {
        const FileCreationMask mask(0022);
        create(directory.path() / "one" / "two" / "three", ownerOnly);
    }
    EXPECT_EQ(modeOf(directory.path() / "one"), 0755u);
    EXPECT_EQ(modeOf(directory.path() / "one" / "two"), 0755u);
    EXPECT_EQ(modeOf(directory.path() / "one" / "two" / "three"), ownerOnly);
}

TEST(CreateDirectory, leavesAnExistingOneAsItIs)
{
    const TemporaryDirectory directory;
    const fs::path existing = directory.path() / "existing";
    fs::create_directory(existing);
    writeText(existing / "file", "kept");
    fs::permissions(existing, fs::perms(0701));
    create(existing, ownerOnly);
    create(existing);
    EXPECT_EQ(modeOf(existing), 0701u);
    EXPECT_EQ(textOf(existing / "file"), "kept");
}

TEST(CreateDirectory, takesALinkToADirectoryForOne)
{
    const TemporaryDirectory directory;
    fs::create_directory(directory.path() / "real");
    fs::permissions(directory.path() / "real", fs::perms(0701));
    fs::create_directory_symlink("real", directory.path() / "link");
    create(directory.path() / "link", ownerOnly);
    create(directory.path() / "link" / "inner");
    EXPECT_EQ(modeOf(directory.path() / "real"), 0701u);
    EXPECT_TRUE(fs::is_directory(directory.path() / "real" / "inner"));
}

TEST(CreateDirectory, takesATrailingSlash)
{
    const TemporaryDirectory directory;
    create(directory.path() / "one" / "two" / "", ownerOnly);
    create(directory.path() / "one" / "two" / "", ownerOnly);
    EXPECT_EQ(modeOf(directory.path() / "one" / "two"), ownerOnly);
}

TEST(CreateDirectory, givesTheModeToADirectoryThatATrailingDotNames)
{
    const TemporaryDirectory directory;
    for (const char* const name : {"one/.", "two/./", "three/././/."}) {
        SCOPED_TRACE(name);
        create(directory.path() / name, ownerOnly);
        create(directory.path() / name, ownerOnly);
        EXPECT_EQ(modeOf(directory.path() / name), ownerOnly);
    }
    const CurrentDirectory here(directory.path());
    create(".", ownerOnly);
    create("./", ownerOnly);
}

TEST(CreateDirectory, takesARelativePath)
{
    const TemporaryDirectory directory;
    {
        const CurrentDirectory current(directory.path());
        create("one");
        create("two/three");
        create("./four/../five");
    }
    EXPECT_EQ(directory.names(), (std::vector<std::string>{"five", "four", "one", "two"}));
    EXPECT_TRUE(fs::is_directory(directory.path() / "two" / "three"));
}

TEST(CreateDirectory, failsWhenSomethingElseIsInTheWay)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "file", "kept");
    fs::create_symlink("missing", directory.path() / "dangling");
    EXPECT_EQ(failureOf([&] { create(directory.path() / "file", ownerOnly); }), std::errc::file_exists);
    EXPECT_EQ(failureOf([&] { create(directory.path() / "dangling", ownerOnly); }), std::errc::file_exists);
    EXPECT_EQ(failureOf([&] { create(directory.path() / "file" / "inner", ownerOnly); }),
              std::errc::not_a_directory);
    EXPECT_EQ(textOf(directory.path() / "file"), "kept");
}

TEST(CreateDirectory, reportsTheErrorOfAFailedLookUp)
{
    const TemporaryDirectory directory;
    makeLinkLoop(directory.path() / "loop");
    EXPECT_EQ(failureOf([&] { create(directory.path() / "loop", ownerOnly); }),
              std::errc::too_many_symbolic_link_levels);
}

TEST(CreateDirectory, failsForAnEmptyPath)
{
    EXPECT_EQ(failureOf([] { create(""); }), std::errc::no_such_file_or_directory);
}

TEST(CreateDirectory, failsInADirectoryWithoutWritePermission)
{
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms(0555));
    std::error_code error;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        error = failureOf([&] { create(directory.path() / "new", ownerOnly); });
    }
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_TRUE(directory.names().empty());
}

}  // namespace
}  // namespace quillmere::test
