// Files and directories of the program are open to their owner alone.
#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <cstdint>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// The modes of everything below a directory, by its path there.
std::map<std::string, mode_t> modesIn(const fs::path& directory)
{
    std::map<std::string, mode_t> modes;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory)) {
        modes[fs::relative(entry.path(), directory).string()] = modeOf(entry.path());
    }
    return modes;
}

constexpr const char* container = "group-containers/T5Q2N84LW7.quillmere";

TEST(PrivateFiles, areMadeForTheOwnerWhateverTheUmask)
{
    const FileCreationMask mask(0);
    Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", (person.directory() / "data").string());
    person.runs({"ask", "Why?"});
    person.runs({"ask", "When?"});
    for (const fs::path& place : {person.directory(), person.stateHome()}) {
        for (const auto& [path, permissions] : modesIn(place)) {
            EXPECT_EQ(permissions, fs::is_directory(place / path) ? 0700U : 0600U) << path;
        }
    }
    EXPECT_EQ(modeOf(person.directory() / "data" / container / WidgetSnapshotStore::fileName), 0600U);
}

/// Gives new files in the directory the mode 0666 whatever the umask: a default access control list (acl(5)),
/// in the form of the kernel. Returns whether the file system has such lists.
bool opensNewFiles(const fs::path& directory)
{
    struct Entry {
        std::uint16_t tag;
        std::uint16_t permissions;
        std::uint32_t id;
    };
    struct {
        std::uint32_t version = 2;
        Entry entries[3] = {{0x01, 6, ~0U}, {0x04, 6, ~0U}, {0x20, 6, ~0U}};  // owner, group, others
    } const list;
    return ::setxattr(directory.c_str(), "system.posix_acl_default", &list, sizeof list, 0) == 0;
}

TEST(PrivateFiles, areMadeForTheOwnerWhereADirectoryOpensItsNewFiles)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    if (!opensNewFiles(person.directory())) {
        GTEST_SKIP() << "the file system has no access control lists";
    }
    person.types({"ask", "Why?"});
    EXPECT_EQ(modeOf(person.directory() / "state.json"), 0600U);
    EXPECT_EQ(modeOf(person.directory() / "agent-state.json"), 0600U);
}

TEST(PrivateFiles, areNarrowedWhenTheyAreReplaced)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    for (const char* name : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        fs::permissions(person.directory() / name, fs::perms(0644));
    }
    person.types({"ask", "Why?"});
    for (const auto& [path, permissions] : modesIn(person.directory())) {
        EXPECT_EQ(permissions, 0600U) << path;
    }
}

TEST(PrivateFiles, leaveTheUmaskOfTheProcessAsItWas)
{
    const FileCreationMask mask(022);
    const Person person;
    person.types({"ask", "Why?"});
    const mode_t after = ::umask(022);
    EXPECT_EQ(after, 022U);
}

TEST(SharedContainer, thatWasOpenToOthersIsClosedOnceAndThatIsSaid)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", person.directory().string());
    const fs::path place = person.directory() / container;
    fs::create_directories(place);
    fs::permissions(place, fs::perms(0755));
    EXPECT_EQ(person.runs({"ask", "Why?"}).err,
              place.string() + " could be read by other users of this machine; now it is yours alone.\n");
    EXPECT_EQ(modeOf(place), 0700U);
    EXPECT_EQ(person.runs({"ask", "When?"}).err, "");
}

TEST(SharedContainer, keepsAModeThatIsNarrower)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", person.directory().string());
    const fs::path place = person.directory() / container;
    fs::create_directories(place);
    fs::permissions(place, fs::perms(0300));
    EXPECT_EQ(person.runs({"ask", "Why?"}).err, "");
    EXPECT_EQ(modeOf(place), 0300U);
}

TEST(ADirectoryOfThePerson, keepsItsMode)
{
    const Person person;
    fs::permissions(person.directory(), fs::perms(0755));
    person.types({"ask", "Why?"});
    EXPECT_EQ(modeOf(person.directory()), 0755U);
}

}  // namespace
}  // namespace quillmere::test
