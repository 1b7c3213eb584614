// Findings on who else may read the files.
#include "doctor_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using doctor::Verdict;

constexpr auto everyone = fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec;

TEST(ModesFinding, isGoodForPrivateFiles)
{
    EXPECT_TRUE(isFound(findingOf("modes", personWithPrivateFiles()), Verdict::good, "Only you"));
}

TEST(ModesFinding, isToLookAtForWideFilesInAPrivateDirectory)
{
    const Person person = personWithPrivateFiles();
    fs::permissions(person.store().stateURL(), fs::perms(0644));
    EXPECT_TRUE(isFound(findingOf("modes", person), Verdict::look, "Wider than needed: state.json (0644).",
                        "chmod 600 " + person.store().stateURL().string()));
}

TEST(ModesFinding, isToLookAtForAWideDirectoryOfPrivateFiles)
{
    const Person person = personWithPrivateFiles();
    fs::permissions(person.directory(), everyone);
    EXPECT_TRUE(isFound(findingOf("modes", person), Verdict::look, person.directory().string() + " (0705)",
                        "chmod 700 " + person.directory().string()));
}

TEST(ModesFinding, isWrongForASummaryThatEveryUserCanRead)
{
    const Person person = personWithPrivateFiles();
    const fs::path summary = person.directory() / WidgetSnapshotStore::fileName;
    fs::permissions(person.directory(), everyone);
    fs::permissions(summary, fs::perms(0604));
    EXPECT_TRUE(isFound(findingOf("modes", person), Verdict::wrong,
                        "Every user of this machine can read or change widget-snapshot.json (0604).",
                        "chmod 700 " + person.directory().string() + " && chmod 600 " + summary.string()));
}

TEST(ModesFinding, isWrongForADirectoryThatEveryUserCanChange)
{
    const Person person = personWithPrivateFiles();
    fs::permissions(person.directory(), fs::perms::all);
    EXPECT_TRUE(isFound(findingOf("modes", person), Verdict::wrong, person.directory().string() + " (0777)"));
}

TEST(ModesFinding, looksAtTheDirectoryOfVersionsToo)
{
    const Person person = personWithPrivateFiles();
    const fs::path kept = subjectOf(person).workspace.stateDirectory();
    fs::create_directories(kept);
    fs::permissions(kept, everyone);
    EXPECT_TRUE(isFound(findingOf("modes", person), Verdict::look, kept.string() + " (0705)"));
}

TEST(ModesFinding, hasACommandThatAShellUnderstands)
{
    const TemporaryDirectory above;
    const fs::path directory = above.path() / "Anna's files";
    fs::create_directory(directory);
    fs::permissions(directory, fs::perms(0750));
    const doctor::Subject subject{.workspace = workspace::Workspace::in(directory, [] { return moment; }),
                                  .stateHome = {},
                                  .origin = doctor::Origin::option,
                                  .now = moment};
    EXPECT_EQ(findingOf("modes", doctor::Examined{.subject = subject, .reading = {}}).command,
              "chmod 700 '" + above.path().string() + "/Anna'\\''s files'");
}

}  // namespace
}  // namespace quillmere::test
