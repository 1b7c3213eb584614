// The directory for versions, drafts and notices.
#include "workspace/state_home.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

TEST(StateHome, isXdgStateHome)
{
    const EnvironmentVariable home("HOME", "/home/someone");
    const EnvironmentVariable named("XDG_STATE_HOME", "/var/someone");
    EXPECT_EQ(workspace::stateHomeOfThisUser(), "/var/someone");
}

TEST(StateHome, isBelowHomeWhenXdgStateHomeIsNoAbsolutePath)
{
    const EnvironmentVariable home("HOME", "/home/someone");
    for (const std::optional<std::string>& value : {std::optional<std::string>(), {""}, {"relative"}}) {
        const EnvironmentVariable named("XDG_STATE_HOME", value);
        EXPECT_EQ(workspace::stateHomeOfThisUser(), "/home/someone/.local/state");
    }
}

TEST(StateHome, isEmptyWithoutHome)
{
    const EnvironmentVariable named("XDG_STATE_HOME", std::nullopt);
    const EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_EQ(workspace::stateHomeOfThisUser(), fs::path());
    EXPECT_EQ(workspace::stateDirectory("/some/files", workspace::stateHomeOfThisUser()), fs::path());
}

TEST(StateHome, hasADirectoryOfItsOwnForEveryDirectory)
{
    // A literal: later versions of the program must find the same directory.
    EXPECT_EQ(workspace::stateDirectory("/some/files", "/s"), "/s/quillmere/937219cda6ac5afa");
    EXPECT_NE(workspace::stateDirectory("/some/files", "/s"), workspace::stateDirectory("/some/file", "/s"));
}

TEST(StateHome, hasTheSameDirectoryForEverySpellingOfAPath)
{
    const TemporaryDirectory directory;
    const fs::path real = fs::canonical(directory.path());
    fs::create_directories(real / "home");
    fs::create_directory_symlink(real / "home", real / "link");
    // The last part need not exist; creating it changes nothing.
    EXPECT_EQ(workspace::stateDirectory(real / "link" / "files", "/s"),
              workspace::stateDirectory(real / "home" / "files", "/s"));
    const fs::path before = workspace::stateDirectory(real / "link" / "files", "/s");
    fs::create_directories(real / "home" / "files");
    EXPECT_EQ(workspace::stateDirectory(real / "link" / "files", "/s"), before);
    EXPECT_EQ(workspace::stateDirectory(real / "home" / ".." / "link" / "files", "/s"), before);
}

TEST(StateHome, isNeverInsideTheDirectoryOfTheFiles)
{
    for (const char* files : {"/", "/some", "/some/home", "/some/home/quillmere"}) {
        EXPECT_EQ(workspace::stateDirectory(files, "/some/home"), fs::path()) << files;
    }
    for (const char* files : {"/some/hom", "/some/home/quillmere/files", "/some/home/files"}) {
        EXPECT_NE(workspace::stateDirectory(files, "/some/home"), fs::path()) << files;
    }
}

}  // namespace
}  // namespace quillmere::test
