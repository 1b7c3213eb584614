// What becomes of the state that a save replaces.
#include "workspace/file_replacement.hpp"

#include <unistd.h>
#include <quillmere/engine/workflow_engine.hpp>

#include "program_testing.hpp"
#include "support/file_system.hpp"
#include "workspace/workspace_of.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using workspace::Version;
using workspace::Versions;

std::vector<Version> versionsOf(const Person& person) { return workspaceOf(person).versions().list(); }

/// The names of the versions with their content.
Words versionTexts(const Person& person)
{
    Words texts;
    for (const Version& version : versionsOf(person)) {
        texts.push_back(version.file.string() + " " + textOf(version.file));
    }
    return texts;
}

/// A person in focus.
Person personWithTwoVersions()
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(10, {"pause"});
    person.typesLater(10, {"resume"});
    return person;
}

/// What an agent asks is saved without a version.
void asksAsAgent(const Person& person)
{
    workspaceOf(person).change(
        [](const std::vector<workspace::Event>&) {},
        [](QuillmereState& state, Instant now) { WorkflowEngine().addQuestion(state, "May I?", now); },
        {.keeping = workspace::Keeping::no});
}

/// Makes a version as a save does that is killed between the link and its rename.
void isKilledBeforeTheRename(const Person& person)
{
    workspaceOf(person).versions().keep(person.store().stateURL(), person.state().updatedAt);
}

TEST(ReplacedState, isKeptWithoutCopyingIt)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const fs::path before = person.directory() / "before";
    fs::create_hard_link(person.store().stateURL(), before);
    person.typesLater(10, {"pause"});
    const std::vector<Version> versions = versionsOf(person);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_TRUE(fs::equivalent(versions[0].file, before));
}

TEST(ReplacedState, isCopiedWhereTheSystemRefusesASecondName)
{
    struct AnotherFileSystem {
        fs::path path = "/dev/shm/quillmere-" + std::to_string(::getpid());
        ~AnotherFileSystem() { fs::remove_all(path); }
    } const other;
    Person person;
    std::error_code refused;
    fs::create_directory(other.path, refused);
    fs::create_hard_link(person.directory(), other.path / "link", refused);
    person.has(stateIn(WorkflowState::focusing));
    const std::string before = textOf(person.store().stateURL());
    fs::create_hard_link(person.store().stateURL(), other.path / "link", refused);
    if (refused != std::errc::cross_device_link) {
        GTEST_SKIP() << "there is no second file system here";
    }
    const Versions versions(other.path / "versions");
    versions.keep(person.store().stateURL(), moment);
    ASSERT_EQ(versions.list().size(), 1U);
    EXPECT_EQ(textOf(versions.list()[0].file), before);
}

TEST(ReplacedState, isNotKeptByASaveThatFails)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can become another user";
    }
    const Person person = personWithTwoVersions();
    const Words before = versionTexts(person);
    const fs::perms everything = fs::perms::all;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(person.stateHome())) {
        fs::permissions(entry, everything);
    }
    fs::permissions(person.stateHome(), everything);
    fs::permissions(person.store().stateURL(), everything);
    fs::permissions(person.directory(),
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "there is no ordinary user here";
    }
    for (int time = 0; time < 12; ++time) {
        EXPECT_EQ(person.types({"pause"}).code, ExitCode::fileError);
    }
    EXPECT_EQ(versionTexts(person), before);
}

TEST(ReplacedState, isNotKeptByASaveThatChangesNothing)
{
    const Person person = personWithTwoVersions();
    const Words before = versionTexts(person);
    workspaceOf(person).change([](const std::vector<workspace::Event>&) {}, [](QuillmereState&, Instant) {});
    EXPECT_EQ(versionTexts(person), before);
}

TEST(ReplacedState, thatAKilledSaveKeptIsDroppedByTheNextSave)
{
    Person person = personWithTwoVersions();
    const Words before = versionTexts(person);
    isKilledBeforeTheRename(person);
    EXPECT_EQ(versionTexts(person).size(), before.size() + 1);
    asksAsAgent(person);
    EXPECT_EQ(versionTexts(person), before);
}

TEST(ReplacedState, thatAKilledSaveKeptIsNotKeptTwice)
{
    Person person = personWithTwoVersions();
    isKilledBeforeTheRename(person);
    const Words before = versionTexts(person);
    EXPECT_EQ(person.typesLater(10, {"pause"}).code, ExitCode::done);
    EXPECT_EQ(versionTexts(person), before);
}

TEST(ReplacedState, isThatOfEachSaveWhenTimeAndAPersonChangedIt)
{
    // The end of the focus session is recorded by one save, the review by another.
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.typesLater(2'000, {"review", "--completion", "yes", "--next-outcome", "More",
                                                    "--next-energy", "4", "--next-morale", "3"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    const std::vector<Version> versions = versionsOf(person);
    ASSERT_EQ(versions.size(), 2U);
    EXPECT_EQ(workspace::stateOf(versions[0])->workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(workspace::stateOf(versions[1])->workflowState, WorkflowState::focusing);
}

TEST(ReplacedState, isLeftWithItsBytesByEveryLaterSave)
{
    Person person = personWithTwoVersions();
    const Words before = versionTexts(person);
    person.typesLater(10, {"pause"});
    const Words after = versionTexts(person);
    EXPECT_EQ(Words(after.begin() + 1, after.end()), before);
}

}  // namespace
}  // namespace quillmere::test
