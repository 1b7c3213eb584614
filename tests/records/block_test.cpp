#include <quillmere/records/block.hpp>

#include <gtest/gtest.h>

#include <cmath>

#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::moment;

TEST(DefaultBlock, isPlannedForEightSessionsOf25MinutesWithBreaksOf5)
{
    const Block block = Block::default_(moment);
    EXPECT_EQ(block.createdAt, moment);
    EXPECT_EQ(block.focusDurationSeconds, 1500);
    EXPECT_EQ(block.breakDurationSeconds, 300);
    EXPECT_EQ(block.cycleCount, 8);
}

TEST(DefaultBlock, hasOneUntitledOutcomeAndNothingElseFilledIn)
{
    const Block block = Block::default_(moment);
    ASSERT_EQ(block.outcomes.size(), 1U);
    EXPECT_EQ(block.outcomes.front().title, "");
    EXPECT_EQ(block.plannedStart, std::nullopt);
    EXPECT_EQ(block.whyValue, "");
    EXPECT_EQ(block.doneTest, "");
    EXPECT_EQ(block.hazards, "");
    EXPECT_EQ(block.measurableCheck, "");
    EXPECT_EQ(block.contextNotes, "");
    EXPECT_TRUE(block.sessions.empty());
    EXPECT_EQ(block.reflection, std::nullopt);
    EXPECT_EQ(block.completedAt, std::nullopt);
    EXPECT_EQ(block.scheduledStartTriggeredAt, std::nullopt);
}

TEST(DefaultBlock, twiceInARowHasNewIdentifiersAndTheSameDurations)
{
    const Block first = Block::default_(moment);
    const Block second = Block::default_(moment);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first.outcomes.at(0).id, second.outcomes.at(0).id);
    EXPECT_NE(first.id, first.outcomes.at(0).id);
    for (const Block& block : {first, second}) {
        EXPECT_EQ(block.outcomes.size(), 1U);
        EXPECT_EQ(block.focusDurationSeconds, 1500);
        EXPECT_EQ(block.breakDurationSeconds, 300);
        EXPECT_EQ(block.cycleCount, 8);
    }
}

TEST(PlannedEnd, countsABreakAfterEverySessionTheLastIncluded)
{
    EXPECT_EQ(Block::default_(moment).plannedEnd(), moment + 8 * 1800);
}

TEST(PlannedEnd, ofABlockWithoutCyclesIsItsStart)
{
    Block block = test::sampleBlock(1);
    block.cycleCount = 0;
    EXPECT_EQ(block.plannedEnd(), block.createdAt);
    block.plannedStart = moment + 99;
    EXPECT_EQ(block.plannedEnd(), moment + 99);
}

TEST(PlannedEnd, isCountedFromThePlannedStartWheneverTheBlockWasCreated)
{
    Block block = test::sampleBlock(1);
    block.plannedStart = moment + 3600;
    EXPECT_EQ(block.plannedEnd(), moment + 3600 + 3 * 1800);
    block.createdAt = moment + 1e6;
    EXPECT_EQ(block.plannedEnd(), moment + 3600 + 3 * 1800);
}

TEST(PlannedEnd, ignoresSessionsPausesAndTheEndOfTheBlock)
{
    Block block = test::blockInWork(1, 3);
    block.sessions.front().accumulatedPausedSeconds = 4000;
    block.completedAt = moment + 5;
    block.scheduledStartTriggeredAt = moment + 6;
    EXPECT_EQ(block.plannedEnd(), block.createdAt + 3 * 1800);
}

TEST(PlannedEnd, addsTheDurationsBeforeItMultiplies)
{
    // 0.1 + 0.2 is not 0.3 in doubles. Three times the sum shows the order of the operations, and that none
    // were fused.
    Block block = test::sampleBlock(1);
    block.createdAt = Instant(0.7);
    block.focusDurationSeconds = 0.1;
    block.breakDurationSeconds = 0.2;
    volatile double product = 0.1 + 0.2;
    product = product * 3;
    EXPECT_EQ(block.plannedEnd().secondsSince1970(), 0.7 + product);
}

TEST(PlannedEnd, liesBeforeTheStartForANegativeNumberOfCycles)
{
    Block block = test::sampleBlock(1);
    block.cycleCount = -2;
    EXPECT_EQ(block.plannedEnd(), block.createdAt - 3600);
}

TEST(PlannedEnd, isNotANumberWhenADurationIsNone)
{
    Block block = test::sampleBlock(1);
    block.focusDurationSeconds = std::nan("");
    EXPECT_TRUE(std::isnan(block.plannedEnd().secondsSince1970()));
}

SessionPlan planFor(std::optional<Identifier> outcome)
{
    SessionPlan plan = test::samplePlan(1);
    plan.blockOutcomeID = outcome;
    return plan;
}

TEST(OutcomeServed, isTheOutcomeThatThePlanNames)
{
    const Block block = test::sampleBlock(1);
    ASSERT_EQ(block.outcomes.size(), 2U);
    EXPECT_EQ(block.outcomeServed(planFor(block.outcomes[1].id)), &block.outcomes[1]);
}

TEST(OutcomeServed, isTheFirstOfTwoWithOneIdentifier)
{
    Block block = test::sampleBlock(1);
    block.outcomes[1].id = block.outcomes[0].id;
    EXPECT_EQ(block.outcomeServed(planFor(block.outcomes[1].id)), &block.outcomes[0]);
}

TEST(OutcomeServed, isNoneWhenThePlanNamesNoOutcomeOfTheBlock)
{
    Block block = test::sampleBlock(1);
    EXPECT_EQ(block.outcomeServed(planFor(std::nullopt)), nullptr);
    EXPECT_EQ(block.outcomeServed(planFor(test::identifier(999))), nullptr);
    const SessionPlan plan = planFor(block.outcomes[0].id);
    block.outcomes.clear();
    EXPECT_EQ(block.outcomeServed(plan), nullptr);
}

TEST(Block, hasCyclesLeftWhileFewerSessionsAreStartedThanPlanned)
{
    Block block = test::blockInWork(1, 2);
    block.cycleCount = 3;
    EXPECT_TRUE(block.hasCyclesLeft());
    for (const std::int64_t cycleCount : {2, 1, 0, -1}) {
        block.cycleCount = cycleCount;
        EXPECT_FALSE(block.hasCyclesLeft());
    }
}

}  // namespace
}  // namespace quillmere
