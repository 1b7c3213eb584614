// One process of several is the leader.
#include "workspace/leader_lock.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using workspace::LeaderLock;

class LeaderLockOfADirectory : public testing::Test {
protected:
    TemporaryDirectory home;
    const std::filesystem::path directory = home.path() / "a" / "notices";
};

TEST_F(LeaderLockOfADirectory, isHeldByOneAtATime)
{
    LeaderLock one(directory);
    LeaderLock other(directory);
    EXPECT_TRUE(one.tryAcquire());
    EXPECT_TRUE(one.tryAcquire());
    EXPECT_FALSE(other.tryAcquire());
    EXPECT_FALSE(other.isHeld());
    one.release();
    EXPECT_FALSE(one.isHeld());
    EXPECT_TRUE(other.tryAcquire());
}

TEST_F(LeaderLockOfADirectory, isSeenByOthersWhileItIsHeld)
{
    using workspace::hasLeader;
    EXPECT_FALSE(hasLeader(directory));
    EXPECT_FALSE(std::filesystem::exists(directory));
    LeaderLock one(directory);
    EXPECT_TRUE(one.tryAcquire());
    EXPECT_TRUE(hasLeader(directory));
    one.release();
    EXPECT_FALSE(hasLeader(directory));
    // Without a directory it cannot be told.
    EXPECT_TRUE(hasLeader({}));
}

TEST_F(LeaderLockOfADirectory, isReleasedWithItsHolder)
{
    LeaderLock other(directory);
    {
        LeaderLock one(directory);
        EXPECT_TRUE(one.tryAcquire());
        EXPECT_FALSE(other.tryAcquire());
    }
    EXPECT_TRUE(other.tryAcquire());
}

TEST_F(LeaderLockOfADirectory, isHeldByAllWhereLockingIsImpossible)
{
    writeText(home.path() / "a", "no directory");
    for (const std::filesystem::path& nowhere : {std::filesystem::path(), directory}) {
        LeaderLock one(nowhere);
        LeaderLock other(nowhere);
        EXPECT_TRUE(one.tryAcquire());
        EXPECT_TRUE(other.tryAcquire());
    }
}

}  // namespace
}  // namespace quillmere::test
