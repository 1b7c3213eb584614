#include "merge/block.hpp"

#include <gtest/gtest.h>

#include "merge_testing.hpp"

namespace quillmere::test {
namespace {

/// A block of which one side has ended its session, at an instant.
Block workedOn(double secondsAfter, std::string why)
{
    Block block = blockInWork(1, 1);
    block.sessions.back().endedAt = moment + secondsAfter;
    block.whyValue = std::move(why);
    return block;
}

/// With a second session that another machine knows nothing of.
Block withSession(Block block, unsigned number, double secondsAfter)
{
    WorkSession session = blockInWork(1, 1).sessions.back();
    session.id = identifier(number);
    session.startedAt = moment + secondsAfter;
    session.number = std::ssize(block.sessions) + 1;
    block.sessions.push_back(session);
    return block;
}

Block joinedBothWays(const Block& a, const Block& b, const merge::WorkAhead& ahead = {})
{
    Block block = joined({a, moment + 9'000}, {b, moment + 8'000}, ahead);
    EXPECT_EQ(joined({b, moment + 8'000}, {a, moment + 9'000}, ahead), block);
    return block;
}

std::vector<Identifier> sessionsOf(const Block& block)
{
    std::vector<Identifier> ids;
    for (const WorkSession& session : block.sessions) {
        EXPECT_EQ(session.number, std::ssize(ids) + 1);
        ids.push_back(session.id);
    }
    return ids;
}

TEST(AJoinedBlock, hasTheTextsOfTheFinishedCopy)
{
    Block finished = workedOn(60, "Finished");
    finished.completedAt = moment + 60;
    EXPECT_EQ(joinedBothWays(finished, workedOn(90, "Open")).whyValue, "Finished");
}

TEST(AJoinedBlock, hasTheTextsOfTheCopyInWhichSomethingBeganLast)
{
    EXPECT_EQ(joinedBothWays(workedOn(90, "Zeal"), withSession(workedOn(60, "Again"), 470, 90)).whyValue,
              "Again");
}

TEST(AJoinedBlock, hasTheTextsOfTheLaterFileUntilItsFirstSession)
{
    Block earlier = sampleBlock(1);
    Block later = earlier;
    earlier.whyValue = "Zeal";
    later.whyValue = "Again";
    EXPECT_EQ(joinedBothWays(later, earlier).whyValue, "Again");
}

TEST(AJoinedBlock, choosesByBytesWhenNothingElseDecides)
{
    EXPECT_EQ(joinedBothWays(workedOn(60, "Again"), workedOn(60, "Zeal")).whyValue, "Zeal");
}

TEST(AJoinedBlock, keepsTheReflectionThatOneSideHas)
{
    Block reflected = workedOn(60, "");
    reflected.completedAt = moment + 60;
    reflected.reflection = sampleReflection();
    Block completedLater = workedOn(60, "");
    completedLater.completedAt = moment + 90;
    EXPECT_EQ(joinedBothWays(reflected, completedLater).reflection, sampleReflection());
}

TEST(AJoinedBlock, hasTheSessionsOfBothByNumberAndStart)
{
    const Block a = withSession(workedOn(60, ""), 470, 300);
    const Block b = withSession(withSession(workedOn(60, ""), 480, 200), 490, 250);
    const Block block = joinedBothWays(a, b);
    EXPECT_EQ(sessionsOf(block),
              (std::vector{a.sessions.front().id, identifier(480), identifier(470), identifier(490)}));
}

TEST(AJoinedBlock, hasTheCurrentSessionLast)
{
    const Block a = withSession(workedOn(60, ""), 470, 100);
    const Block b = withSession(workedOn(60, ""), 480, 200);
    const Block block = joinedBothWays(a, b, {.currentSession = identifier(470)});
    EXPECT_EQ(sessionsOf(block).back(), identifier(470));
    EXPECT_EQ(block.sessions[2].endedAt, std::nullopt);
    EXPECT_EQ(block.sessions[1].endedAt, moment + 1'700);
}

TEST(AJoinedBlock, endsSessionsThatNobodyGoesOnWith)
{
    const Block a = withSession(workedOn(60, ""), 470, 300);
    const Block b = workedOn(60, "");
    EXPECT_EQ(joinedBothWays(a, b).sessions.back().endedAt, moment + 1'800);
}

TEST(AJoinedBlock, hasAtLeastTheCyclesThatItsSessionsNeed)
{
    Block a = withSession(workedOn(60, ""), 470, 300);
    Block b = withSession(workedOn(60, ""), 480, 200);
    a.cycleCount = b.cycleCount = 2;
    EXPECT_EQ(joinedBothWays(a, b).cycleCount, 3);
    EXPECT_EQ(joinedBothWays(a, b, {.currentSession = {}, .anotherSession = true}).cycleCount, 4);
    a.cycleCount = b.cycleCount = 8;
    EXPECT_EQ(joinedBothWays(a, b).cycleCount, 8);
}

}  // namespace
}  // namespace quillmere::test
