// The directories of applications and of groups of applications.
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "store_testing.hpp"
#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/store_doubles.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// Sets the environment to an empty directory.
struct Environment {
    TemporaryDirectory directory;
    EnvironmentVariable data{"XDG_DATA_HOME", (directory.path() / "data").string()};
    fs::path containers = directory.path() / "data" / "group-containers";
};

TEST(ApplicationSupportDirectories, followTheEnvironment)
{
    const std::string data = "/somewhere/data";
    const std::string home = "/somewhere/home";
    const std::string inHome = "/somewhere/home/.local/share";
    const struct {
        const char* what;
        std::optional<std::string> data;
        std::optional<std::string> home;
        std::optional<std::string> expected;
    } rows[] = {
        {"both set", data, home, data},
        {"no home", data, std::nullopt, data},
        {"data not set", std::nullopt, home, inHome},
        {"data empty", "", home, inHome},
        {"data relative", "data", home, inHome},
        {"data with a tilde, which only a shell knows", "~/data", home, inHome},
        {"neither set", std::nullopt, std::nullopt, std::nullopt},
        {"both empty", "", "", std::nullopt},
        {"both relative", "data", "home", std::nullopt},
        {"home relative", std::nullopt, "./home", std::nullopt},
        {"home is the root", std::nullopt, "/", "/.local/share"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const EnvironmentVariable dataVariable("XDG_DATA_HOME", row.data);
        const EnvironmentVariable homeVariable("HOME", row.home);
        std::vector<fs::path> expected;
        if (row.expected) {
            expected.push_back(*row.expected);
        }
        EXPECT_EQ(files().applicationSupportDirectories(), expected);
    }
}

TEST(ApplicationSupportDirectories, areNotMade)
{
    const Environment environment;
    files().applicationSupportDirectories();
    EXPECT_TRUE(environment.directory.names().empty());
}

TEST(ContainerPath, isTheSameBeforeAndAfterTheDirectoryIsCreated)
{
    const Environment environment;
    EXPECT_EQ(files().containerPath("group"), environment.containers / "group");
    EXPECT_TRUE(environment.directory.names().empty());
    files().createContainerDirectory("group");
    EXPECT_EQ(files().containerPath("group"), environment.containers / "group");
}

TEST(ContainerDirectory, isAbsentUntilItIsMade)
{
    const Environment environment;
    EXPECT_EQ(files().containerDirectory("group"), std::nullopt);
    EXPECT_TRUE(environment.directory.names().empty());
    fs::create_directories(environment.containers / "group");
    EXPECT_EQ(files().containerDirectory("group"), environment.containers / "group");
}

TEST(ContainerDirectory, isThatOfTheGroup)
{
    const Environment environment;
    fs::create_directories(environment.containers / "one");
    EXPECT_EQ(files().containerDirectory("other"), std::nullopt);
}

TEST(ContainerDirectory, isAbsentForAnIdentifierThatLeadsElsewhere)
{
    const Environment environment;
    fs::create_directories(environment.containers / "group" / "inner");
    const std::string absolute = environment.containers / "group";
    for (const std::string& identifier :
         {absolute, std::string("group/inner"), std::string("group/"), std::string("../group-containers"),
          std::string(".."), std::string("."), std::string()}) {
        SCOPED_TRACE(identifier);
        EXPECT_EQ(files().containerPath(identifier), std::nullopt);
        EXPECT_EQ(files().containerDirectory(identifier), std::nullopt);
        EXPECT_EQ(failureOf([&] { files().createContainerDirectory(identifier); }),
                  std::errc::no_such_file_or_directory);
    }
}

TEST(ContainerDirectory, isAbsentWhenAFileHasItsName)
{
    const Environment environment;
    fs::create_directories(environment.containers);
    writeText(environment.containers / "group", "");
    EXPECT_EQ(files().containerDirectory("group"), std::nullopt);
}

TEST(ContainerDirectory, isAbsentWithoutAnEnvironment)
{
    const EnvironmentVariable data("XDG_DATA_HOME", std::nullopt);
    const EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_EQ(files().containerPath("group"), std::nullopt);
    EXPECT_EQ(files().containerDirectory("group"), std::nullopt);
}

TEST(CreateContainerDirectory, createsTheDirectoryThatIsFoundFromThenOn)
{
    const Environment environment;
    fs::path made;
    {
        const FileCreationMask mask(0022);
        made = files().createContainerDirectory("group");
    }
    EXPECT_EQ(made, environment.containers / "group");
    EXPECT_EQ(modeOf(made), 0755u);
    EXPECT_EQ(files().containerDirectory("group"), made);
}

TEST(CreateContainerDirectory, leavesAnExistingOneAsItIs)
{
    const Environment environment;
    fs::create_directories(environment.containers / "group");
    writeText(environment.containers / "group" / "file", "kept");
    EXPECT_EQ(files().createContainerDirectory("group"), environment.containers / "group");
    EXPECT_EQ(textOf(environment.containers / "group" / "file"), "kept");
}

TEST(CreateContainerDirectory, failsWithoutAnEnvironment)
{
    const EnvironmentVariable data("XDG_DATA_HOME", std::nullopt);
    const EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_EQ(failureOf([] { files().createContainerDirectory("group"); }),
              std::errc::no_such_file_or_directory);
}

TEST(DefaultDirectory, isQuillmereInTheFirstSupportDirectory)
{
    PlacesOnly places;
    places.supportDirectories = {"/first", "/second"};
    EXPECT_EQ(StateStore::defaultDirectory(places), "/first/Quillmere");
}

TEST(DefaultDirectory, isNotMade)
{
    const Environment environment;
    EXPECT_EQ(StateStore::defaultDirectory(files()), environment.directory.path() / "data" / "Quillmere");
    EXPECT_TRUE(environment.directory.names().empty());
}

TEST(DefaultDirectoryDeathTest, stopsTheProgramWhenThereIsNoSupportDirectory)
{
    const PlacesOnly nowhere;
    EXPECT_DEATH(StateStore::defaultDirectory(nowhere), "no application-support directory");
}

}  // namespace
}  // namespace quillmere::test
