// One of all who could tell does.
#include "notices/turn.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using app::Turn;

class TurnToTell : public testing::Test {
protected:
    TemporaryDirectory home;
    const std::filesystem::path directory = home.path() / "a" / "notices";
};

TEST_F(TurnToTell, isHadByOne)
{
    Turn one(directory);
    Turn other(directory);
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
    Turn other(directory);
    {
        Turn one(directory);
        EXPECT_TRUE(one.take());
        EXPECT_FALSE(other.take());
    }
    EXPECT_TRUE(other.take());
}

TEST_F(TurnToTell, isHadByEverybodyWhereNothingCanBeLocked)
{
    writeText(home.path() / "a", "no directory");
    for (const std::filesystem::path& nowhere : {std::filesystem::path(), directory}) {
        Turn one(nowhere);
        Turn other(nowhere);
        EXPECT_TRUE(one.take());
        EXPECT_TRUE(other.take());
    }
}

}  // namespace
}  // namespace quillmere::test
