// The lock under which a run changes the state, also where the directory cannot be locked.
#include "workspace/state_lock.hpp"
#include "base/refusal.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "refused_locks.hpp"
#include "support/file_system.hpp"
#include "support/process.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using base::Refusal;
using workspace::DirectoryLock;
using workspace::StateLock;

constexpr auto noPatience = std::chrono::milliseconds(0);

/// A state that is a number in a file, changed as the program changes its state.
class StateLockTest : public testing::Test {
protected:
    TemporaryDirectory directory;
    const fs::path state = directory.path() / "state.json";

    StateLock lock(std::chrono::milliseconds patience = noPatience) const
    {
        return StateLock(
            directory.path(), state, [this] { makeFirst(); }, patience);
    }

    /// Whether another process can have the lock now.
    bool isFree() const
    {
        const auto tries = [this] {
            try {
                lock();
                return 0;
            } catch (const Refusal& refusal) {
                return refusal.kind() == Refusal::Kind::busy ? 3 : 1;
            }
        };
        const int code = run({.work = tries}).code;
        EXPECT_TRUE(code == 0 || code == 3) << code;
        return code == 0;
    }

    void replace(StateLock& held, const std::string& text) const
    {
        const fs::path temporary = temporaryFile(text);
        held.follow(temporary);
        fs::rename(temporary, state);
    }

    fs::path temporaryFile(const std::string& text) const
    {
        const fs::path file = directory.path() / ("." + std::to_string(::getpid()) + ".tmp");
        writeText(file, text);
        return file;
    }

private:
    void makeFirst() const
    {
        const fs::path temporary = temporaryFile("0");
        std::error_code taken;
        fs::create_hard_link(temporary, state, taken);
        fs::remove(temporary);
    }
};

/// Where the file system offers no flock(2).
class StateLockOnTheFile : public StateLockTest {
protected:
    RefusedLocks refused{ENOLCK};
};

TEST_F(StateLockTest, isOnTheDirectoryWhereTheSystemOffersIt)
{
    StateLock held = lock();
    EXPECT_FALSE(held.isOnFile());
    EXPECT_FALSE(DirectoryLock::tryTake(directory.path()).has_value());
    EXPECT_FALSE(isFree());
    EXPECT_EQ(directory.names(), std::vector<std::string>{});
    replace(held, "1");
    EXPECT_FALSE(isFree());
}

TEST_F(StateLockTest, isOnTheFileWhereTheDirectoryCannotBeLocked)
{
    for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS}) {
        SCOPED_TRACE(error);
        const RefusedLocks refused(error);
        {
            const StateLock held = lock();
            EXPECT_TRUE(held.isOnFile());
            EXPECT_FALSE(isFree());
        }
        EXPECT_TRUE(isFree());
    }
}

TEST_F(StateLockTest, failsWhenLockingFailsInAnyOtherWay)
{
    const RefusedLocks refused(EIO);
    EXPECT_EQ(failureOf([this] { lock(); }), std::errc::io_error);
    EXPECT_EQ(directory.names(), std::vector<std::string>{});
}

TEST_F(StateLockTest, isRefusedWithTheWayOutWhereNoLockIsOffered)
{
    writeText(state, "7");
    for (const int error : {EINVAL, ENOLCK}) {
        const RefusedLocks refused(ENOLCK, error);
        try {
            lock();
            FAIL() << "the lock was taken";
        } catch (const Refusal& refusal) {
            const std::string message = refusal.what();
            EXPECT_EQ(refusal.kind(), Refusal::Kind::fileError);
            for (const std::string& word : {directory.path().string(), std::string("looking works"),
                                            std::string("--directory"), std::string("XDG_DATA_HOME")}) {
                EXPECT_NE(message.find(word), std::string::npos) << message;
            }
        }
    }
    EXPECT_EQ(textOf(state), "7");
}

TEST_F(StateLockOnTheFile, makesAFirstStateWhenThereIsNone)
{
    const StateLock held = lock();
    EXPECT_EQ(textOf(state), "0");
    EXPECT_EQ(directory.names(), std::vector<std::string>{"state.json"});
    EXPECT_FALSE(isFree());
}

TEST_F(StateLockOnTheFile, followsTheFilesThatReplaceTheState)
{
    {
        StateLock held = lock();
        for (const char* const text : {"1", "2"}) {
            replace(held, text);
            EXPECT_FALSE(isFree());
        }
    }
    EXPECT_TRUE(isFree());
    EXPECT_EQ(textOf(state), "2");
}

TEST_F(StateLockOnTheFile, staysWhereItWasWhenTheStateIsNotReplaced)
{
    StateLock held = lock();
    const fs::path temporary = temporaryFile("1");
    held.follow(temporary);
    fs::remove(temporary);
    EXPECT_FALSE(isFree());
}

TEST_F(StateLockOnTheFile, isNotTakenOnAFileThatWasReplacedMeanwhile)
{
    writeText(state, "0");
    beforeNextLock([this] { fs::rename(temporaryFile("1"), state); });
    const StateLock held = lock(patience);
    EXPECT_EQ(textOf(state), "1");
    EXPECT_FALSE(isFree());
}

TEST_F(StateLockOnTheFile, losesNoChangeOfManyProcesses)
{
    constexpr int processes = 4;
    constexpr int changes = 10;
    const auto change = [this] {
        for (int count = 0; count < changes; ++count) {
            StateLock held = lock(patience);
            replace(held, std::to_string(std::stoi(textOf(state)) + 1));
        }
        return 0;
    };
    std::vector<Process> all;
    for (int number = 0; number < processes; ++number) {
        all.emplace_back(ProcessOptions{.work = change});
    }
    for (Process& process : all) {
        EXPECT_EQ(process.wait().code, 0) << process.err();
    }
    EXPECT_EQ(textOf(state), std::to_string(processes * changes));
}

TEST_F(StateLockOnTheFile, doesNotFollowALink)
{
    writeText(directory.path() / "elsewhere", "7");
    fs::create_symlink("elsewhere", state);
    EXPECT_EQ(failureOf([this] { lock(); }), std::errc::too_many_symbolic_link_levels);
}

TEST_F(StateLockOnTheFile, leavesNoFileAndNoDescriptorBehind)
{
    writeText(state, "0");
    const std::size_t count = openFileCount();
    {
        StateLock held = lock();
        replace(held, "1");
    }
    EXPECT_EQ(openFileCount(), count);
    EXPECT_EQ(directory.names(), std::vector<std::string>{"state.json"});
}

}  // namespace
}  // namespace quillmere::test
