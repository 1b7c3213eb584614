// One of all who could tell does.
#include "workspace/leader_lock.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using workspace::LeaderLock;

class TurnToTell : public testing::Test {
protected:
    TemporaryDirectory home;
    const std::filesystem::path directory = home.path() / "a" / "notices";
};

TEST_F(TurnToTell, isHadByOne)
{
    LeaderLock one(directory);
    LeaderLock other(directory);
    EXPECT_TRUE(one.take());
    EXPECT_TRUE(one.take());
    EXPECT_FALSE(other.take());
    EXPECT_FALSE(other.isHad());
    one.giveBack();
    EXPECT_FALSE(one.isHad());
    EXPECT_TRUE(other.take());
}

TEST_F(TurnToTell, goesWithItsHolder)
{
    LeaderLock other(directory);
    {
        LeaderLock one(directory);
        EXPECT_TRUE(one.take());
        EXPECT_FALSE(other.take());
    }
    EXPECT_TRUE(other.take());
}

TEST_F(TurnToTell, isHadByEverybodyWhereNothingCanBeLocked)
{
    writeText(home.path() / "a", "no directory");
    for (const std::filesystem::path& nowhere : {std::filesystem::path(), directory}) {
        LeaderLock one(nowhere);
        LeaderLock other(nowhere);
        EXPECT_TRUE(one.take());
        EXPECT_TRUE(other.take());
    }
}

}  // namespace
}  // namespace quillmere::test
