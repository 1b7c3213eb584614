// Commands that only read: they never write, and never wait for the lock.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

const Words readingCommands[] = {
    {"status"},
    {"questions"},
    {"questions", "--all"},
    {"history"},
    {"report"},
    {"restore"},
    {"widget"},
    {"bar"},
    {"config"},
    {"agent"},
    {"open", "quillmere://open/focus"},
    {"complete", "RECORD"},
    {"complete", "VERSION"},
    {},
};

Words forPrograms(Words words)
{
    words.push_back("--json");
    return words;
}

TEST(ReadingCommands, writeNothingInAnyStateHoweverLateItIs)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        Person person;
        person.has(stateIn(workflowState));
        person.now = moment + 100'000;
        const auto before = pictureOf(person.directory());
        for (const Words& words : readingCommands) {
            SCOPED_TRACE(testing::PrintToString(words));
            EXPECT_EQ(person.types(words).code, ExitCode::done);
            EXPECT_EQ(person.types(forPrograms(words)).code, ExitCode::done);
        }
        EXPECT_EQ(pictureOf(person.directory()), before);
    }
}

TEST(ReadingCommands, createNoDirectory)
{
    const Person person;
    const std::string missing = (person.directory() / "missing").string();
    for (const Words& words : readingCommands) {
        SCOPED_TRACE(testing::PrintToString(words));
        Words line = {"--directory", missing};
        line.insert(line.end(), words.begin(), words.end());
        EXPECT_EQ(person.runs(line).code, ExitCode::done);
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(ReadingCommands, doNotWaitForTheLock)
{
    // A command that took the lock would end after five seconds with another code.
    Person person;
    person.has(fullState());
    const int descriptor = ::open(person.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX | LOCK_NB), 0);
    for (const Words& words : readingCommands) {
        SCOPED_TRACE(testing::PrintToString(words));
        EXPECT_EQ(person.types(words).code, ExitCode::done);
    }
    ::close(descriptor);
}

TEST(ReadingCommands, workInADirectoryWithoutWritePermission)
{
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions have no effect here";
    }
    Person person;
    person.has(fullState());
    std::filesystem::permissions(person.directory(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    for (const Words& words : readingCommands) {
        SCOPED_TRACE(testing::PrintToString(words));
        EXPECT_EQ(person.types(words).code, ExitCode::done);
    }
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::fileError);
    std::filesystem::permissions(person.directory(), std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace quillmere::test
