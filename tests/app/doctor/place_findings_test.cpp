// Findings on the directory of the files.
#include "doctor/place_findings.hpp"

#include <unistd.h>

#include "doctor_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using doctor::Verdict;

doctor::Subject subjectIn(const fs::path& directory, doctor::Origin origin = doctor::Origin::option)
{
    return {.workspace = workspace::Workspace::in(directory, [] { return moment; }),
            .stateHome = {},
            .origin = origin,
            .now = moment};
}

doctor::Finding directoryFindingIn(const fs::path& directory)
{
    const std::vector<doctor::Check> checks = doctor::examine(subjectIn(directory));
    EXPECT_EQ(checks.front().name, "directory");
    return checks.front().finding;
}

TEST(DirectoryFinding, namesTheDirectoryTheReasonAndTheFileSystem)
{
    const Person person = personWithPrivateFiles();
    const doctor::Finding finding = findingOf("directory", person);
    EXPECT_NE(finding.verdict, Verdict::wrong);
    EXPECT_EQ(finding.text.rfind(person.directory().string() + " (chosen by --directory), on ", 0), 0U)
        << finding.text;
}

TEST(DirectoryFinding, isToLookAtWhereThereIsNoneYetAndMakesNone)
{
    const TemporaryDirectory above;
    const fs::path missing = above.path() / "a" / "b";
    EXPECT_TRUE(isFound(directoryFindingIn(missing), Verdict::look, "there is no state yet",
                        "quillmere --directory " + missing.string() + " plan"));
    EXPECT_EQ(above.names(), Words{});
}

TEST(DirectoryFinding, isWrongForAFileInItsPlace)
{
    const TemporaryDirectory above;
    writeText(above.path() / "file", "a diary");
    EXPECT_TRUE(isFound(directoryFindingIn(above.path() / "file"), Verdict::wrong, "is no directory"));
    EXPECT_TRUE(isFound(directoryFindingIn(above.path() / "file" / "below"), Verdict::wrong,
                        "cannot be made: " + (above.path() / "file").string() + " is no directory"));
    EXPECT_EQ(textOf(above.path() / "file"), "a diary");
}

TEST(DirectoryFinding, isWrongForALinkThatLeadsNowhere)
{
    const TemporaryDirectory above;
    fs::create_symlink("nowhere", above.path() / "link");
    EXPECT_TRUE(isFound(directoryFindingIn(above.path() / "link"), Verdict::wrong,
                        "is a link to nowhere, which does not exist"));
}

TEST(DirectoryFinding, isWrongWhereNoFileOrDirectoryCanBeMade)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions have no effect here";
    }
    const TemporaryDirectory directory;
    fs::permissions(directory.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(isFound(directoryFindingIn(directory.path()), Verdict::wrong,
                        "no file can be made: Permission denied"));
    EXPECT_TRUE(isFound(directoryFindingIn(directory.path() / "below"), Verdict::wrong,
                        "cannot be made in " + directory.path().string() + ": Permission denied"));
    fs::permissions(directory.path(), fs::perms::owner_all);
}

TEST(DirectoryFinding, isToLookAtWhenTheVariableThatShouldNameItDoesNotCount)
{
    const EnvironmentVariable relative("XDG_DATA_HOME", "share");
    const TemporaryDirectory directory;
    const doctor::Subject subject = subjectIn(directory.path(), doctor::usualOrigin());
    EXPECT_TRUE(isFound(doctor::examine(subject).front().finding, Verdict::look, "not an absolute path",
                        "unset XDG_DATA_HOME"));
}

TEST(UsualOrigin, isTheVariableThatNamesTheDataDirectory)
{
    const EnvironmentVariable absolute("XDG_DATA_HOME", "/somewhere");
    EXPECT_EQ(doctor::usualOrigin(), doctor::Origin::dataHome);
    const EnvironmentVariable none("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(doctor::usualOrigin(), doctor::Origin::home);
}

TEST(FileSystemFinding, isToLookAtWhereFilesAreLostOrSharedByMachines)
{
    EXPECT_TRUE(isFound(doctor::fileSystemFinding("D", {.name = "ext4"}), Verdict::good, "D."));
    EXPECT_TRUE(isFound(doctor::fileSystemFinding("D", {.name = "tmpfs", .isInMemory = true}), Verdict::look,
                        "lost when the machine stops"));
    EXPECT_TRUE(isFound(doctor::fileSystemFinding("D", {.name = "nfs", .isOverNetwork = true}), Verdict::look,
                        "over a network"));
}

TEST(FileSystem, isNamedWhereItIsAUsualOne)
{
    EXPECT_EQ(doctor::fileSystemAt("/proc").name, "type 0x9fa0");
    EXPECT_EQ(failureOf([] { doctor::fileSystemAt("/nowhere/at/all"); }),
              std::errc::no_such_file_or_directory);
}

TEST(OwnerFinding, isToLookAtForFilesOfAnotherUser)
{
    const Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("owner", person), Verdict::good, "your own"));
    constexpr uid_t other = 12345;
    if (::chown(person.store().agentStateURL().c_str(), other, static_cast<gid_t>(-1)) != 0) {
        GTEST_SKIP() << "only the superuser can give files away";
    }
    EXPECT_TRUE(isFound(findingOf("owner", person), Verdict::look,
                        "agent-state.json belongs to user 12345, and this is user 0."));
}

TEST(LinksFinding, isWrongForAStateThatIsALink)
{
    const Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("links", person), Verdict::good, "No file is a link"));
    const TemporaryDirectory other;
    fs::rename(person.store().stateURL(), other.path() / "state.json");
    fs::create_symlink(other.path() / "state.json", person.store().stateURL());
    EXPECT_TRUE(isFound(findingOf("links", person), Verdict::wrong,
                        "is a link to " + (other.path() / "state.json").string(),
                        "quillmere --directory " + other.path().string()));
}

TEST(LinksFinding, isToLookAtForASummaryThatIsALink)
{
    const Person person = personWithPrivateFiles();
    fs::rename(person.store().agentStateURL(), person.directory() / "elsewhere.json");
    fs::create_symlink("elsewhere.json", person.store().agentStateURL());
    EXPECT_TRUE(isFound(findingOf("links", person), Verdict::look, "is a link to elsewhere.json"));
}

TEST(LinksFinding, isGoodForADirectoryThatIsALink)
{
    const Person person = personWithPrivateFiles();
    const TemporaryDirectory above;
    fs::create_directory_symlink(person.directory(), above.path() / "link");
    doctor::Examined examined{
        .subject = subjectIn(above.path() / "link"), .reading = {}, .probe = doctor::Probe{}};
    EXPECT_TRUE(isFound(findingOf("links", examined), Verdict::good,
                        "The directory is at " + fs::canonical(person.directory()).string()));
}

}  // namespace
}  // namespace quillmere::test
