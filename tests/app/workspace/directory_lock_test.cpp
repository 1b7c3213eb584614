// The lock that lets one program at a time write in a directory.
#include "workspace/directory_lock.hpp"
#include "base/refusal.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "program_testing.hpp"
#include "refused_locks.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

using workspace::DirectoryLock;

bool isFree(const std::filesystem::path& directory)
{
    const int descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_NE(descriptor, -1);
    const bool taken = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    ::close(descriptor);
    return taken;
}

TEST(DirectoryLock, isHeldForAsLongAsItLives)
{
    const TemporaryDirectory directory;
    EXPECT_TRUE(isFree(directory.path()));
    {
        const DirectoryLock lock(directory.path());
        EXPECT_FALSE(isFree(directory.path()));
    }
    EXPECT_TRUE(isFree(directory.path()));
}

TEST(DirectoryLock, canBeTriedWithoutWaiting)
{
    const TemporaryDirectory directory;
    {
        const auto lock = DirectoryLock::tryTake(directory.path());
        ASSERT_TRUE(lock.has_value());
        EXPECT_FALSE(isFree(directory.path()));
        EXPECT_FALSE(DirectoryLock::tryTake(directory.path()).has_value());
    }
    EXPECT_TRUE(isFree(directory.path()));
    EXPECT_EQ(failureOf([&] { DirectoryLock::tryTake(directory.path() / "missing"); }),
              std::errc::no_such_file_or_directory);
}

TEST(DirectoryLock, leavesNoFileAndNoDescriptorBehind)
{
    const TemporaryDirectory directory;
    const std::size_t count = openFileCount();
    {
        const DirectoryLock lock(directory.path());
        EXPECT_EQ(directory.names(), Words{});
    }
    EXPECT_EQ(openFileCount(), count);
    EXPECT_EQ(directory.names(), Words{});
}

TEST(DirectoryLock, isOfOneDirectoryOnly)
{
    const TemporaryDirectory one;
    const TemporaryDirectory other;
    const DirectoryLock lock(one.path());
    EXPECT_TRUE(isFree(other.path()));
}

TEST(DirectoryLock, isWaitedForNoLongerThanThePatience)
{
    const TemporaryDirectory directory;
    const DirectoryLock lock(directory.path());
    EXPECT_THROW(DirectoryLock(directory.path(), std::chrono::milliseconds(0)), base::Refusal);
    EXPECT_FALSE(isFree(directory.path()));
}

TEST(DirectoryLock, needsADirectory)
{
    const TemporaryDirectory directory;
    const std::size_t count = openFileCount();
    EXPECT_EQ(failureOf([&] { DirectoryLock(directory.path() / "missing"); }),
              std::errc::no_such_file_or_directory);
    writeText(directory.path() / "file", "");
    EXPECT_EQ(failureOf([&] { DirectoryLock(directory.path() / "file"); }), std::errc::not_a_directory);
    EXPECT_EQ(openFileCount(), count);
}

TEST(Commands, changeTheStateWhereOnlyFilesCanBeLocked)
{
    const Person person;
    const RefusedLocks refused(ENOLCK);
    for (const char* const question : {"First?", "Second?"}) {
        EXPECT_EQ(person.types({"ask", question}).code, ExitCode::done);
    }
    EXPECT_EQ(person.state().agentQuestions.size(), 2U);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Commands, changeNothingButLookWhereNothingCanBeLocked)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const RefusedLocks refused(ENOLCK, EINVAL);
    const Ending ending = person.types({"ask", "Why?"});
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_NE(ending.err.find("offers no locks"), std::string::npos) << ending.err;
    EXPECT_TRUE(person.state() == stateIn(WorkflowState::focusing));
    EXPECT_EQ(person.types({"status"}).code, ExitCode::done);
}

TEST(Commands, releaseTheLockHoweverTheyEnd)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    for (const Words& words : {Words{"ask", "Why?"}, Words{"resume"}, Words{"answer", "9", "Yes"}}) {
        person.types(words);
        EXPECT_TRUE(isFree(person.directory()));
    }
    writeText(person.store().stateURL(), "spoilt");
    EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::unusableData);
    EXPECT_TRUE(isFree(person.directory()));
}

}  // namespace
}  // namespace quillmere::test
