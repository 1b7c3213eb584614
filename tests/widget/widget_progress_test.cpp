// Progress values of the widget's summary.
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

/// A summary with a countdown of 1000 seconds from `moment` on.
WidgetSnapshot running()
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    snapshot.countdown = {
        .endsAt = moment + 1000, .startedAt = moment, .isPaused = false, .frozenRemainingSeconds = 250};
    return snapshot;
}

WidgetSnapshot paused(std::int64_t remaining)
{
    WidgetSnapshot snapshot = running();
    snapshot.countdown->isPaused = true;
    snapshot.countdown->frozenRemainingSeconds = remaining;
    return snapshot;
}

WidgetSnapshot withSessions(std::int64_t started, std::int64_t planned)
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    snapshot.sessionsStarted = started;
    snapshot.sessionsPlanned = planned;
    return snapshot;
}

WidgetSnapshot withQuestions(std::int64_t count, std::vector<std::string> texts)
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    snapshot.openQuestionCount = count;
    snapshot.openQuestions = std::move(texts);
    return snapshot;
}

TEST(SessionProgress, isAbsentWithoutACountdown)
{
    EXPECT_EQ(WidgetSnapshot::empty(moment).sessionProgress(moment), std::nullopt);
}

TEST(SessionProgress, isNoneAtAnInstantThatIsNotANumber)
{
    EXPECT_EQ(running().sessionProgress(Instant(std::numeric_limits<double>::quiet_NaN())), 0.0);
}

TEST(SessionProgress, isTheShareOfTheTimePassed)
{
    EXPECT_EQ(running().sessionProgress(moment), 0.0);
    EXPECT_EQ(running().sessionProgress(moment + 250), 0.25);
    EXPECT_EQ(running().sessionProgress(moment + 0.5), 0.0005);
    EXPECT_EQ(running().sessionProgress(moment + 1000), 1.0);
}

TEST(SessionProgress, staysBetweenNoneAndAll)
{
    EXPECT_EQ(running().sessionProgress(moment - 0.001), 0.0);
    EXPECT_EQ(running().sessionProgress(moment - 1e300), 0.0);
    EXPECT_EQ(running().sessionProgress(moment + 1000.001), 1.0);
    EXPECT_EQ(running().sessionProgress(moment + 1e300), 1.0);
    EXPECT_EQ(running().sessionProgress(moment + infinity), 1.0);
}

TEST(SessionProgress, standsStillWhilePaused)
{
    for (const double later : {-500.0, 0.0, 250.0, 1e9}) {
        SCOPED_TRACE(later);
        EXPECT_EQ(paused(600).sessionProgress(moment + later), 0.4);
    }
}

TEST(SessionProgress, whilePausedStaysBetweenNoneAndAll)
{
    EXPECT_EQ(paused(-60).sessionProgress(moment), 1.0);
    EXPECT_EQ(paused(1001).sessionProgress(moment), 0.0);
    EXPECT_EQ(paused(least).sessionProgress(moment), 1.0);
    EXPECT_EQ(paused(most).sessionProgress(moment), 0.0);
}

TEST(SessionProgress, isAbsentWhenTheCountdownHasNoLength)
{
    for (const double length : {0.0, -0.001, -1000.0, std::numeric_limits<double>::quiet_NaN()}) {
        SCOPED_TRACE(length);
        WidgetSnapshot snapshot = running();
        snapshot.countdown->endsAt = moment + length;
        EXPECT_EQ(snapshot.sessionProgress(moment), std::nullopt);
        snapshot.countdown->isPaused = true;
        EXPECT_EQ(snapshot.sessionProgress(moment), std::nullopt);
    }
}

TEST(BlockProgress, isTheShareOfTheSessionsStarted)
{
    EXPECT_EQ(withSessions(3, 8).blockProgress(), 0.375);
    EXPECT_EQ(withSessions(0, 8).blockProgress(), 0.0);
    EXPECT_EQ(withSessions(8, 8).blockProgress(), 1.0);
    EXPECT_EQ(withSessions(most / 2 + 1, most).blockProgress(), 0.5);
}

TEST(BlockProgress, isNoneWithoutPlannedSessions)
{
    EXPECT_EQ(withSessions(0, 0).blockProgress(), 0.0);
    EXPECT_EQ(withSessions(3, 0).blockProgress(), 0.0);
    EXPECT_EQ(withSessions(3, -1).blockProgress(), 0.0);
    EXPECT_EQ(withSessions(-3, least).blockProgress(), 0.0);
}

TEST(BlockProgress, staysBetweenNoneAndAll)
{
    EXPECT_EQ(withSessions(9, 8).blockProgress(), 1.0);
    EXPECT_EQ(withSessions(most, 1).blockProgress(), 1.0);
    EXPECT_EQ(withSessions(-1, 8).blockProgress(), 0.0);
    EXPECT_EQ(withSessions(least, 8).blockProgress(), 0.0);
}

TEST(HiddenOpenQuestionCount, isTheNumberOfQuestionsWithoutAText)
{
    EXPECT_EQ(withQuestions(5, {"a", "b", "c"}).hiddenOpenQuestionCount(), 2);
    EXPECT_EQ(withQuestions(3, {"a", "b", "c"}).hiddenOpenQuestionCount(), 0);
    EXPECT_EQ(withQuestions(0, {}).hiddenOpenQuestionCount(), 0);
    EXPECT_EQ(withQuestions(most, {}).hiddenOpenQuestionCount(), most);
}

TEST(HiddenOpenQuestionCount, isNeverNegative)
{
    EXPECT_EQ(withQuestions(1, {"a", "b", "c"}).hiddenOpenQuestionCount(), 0);
    EXPECT_EQ(withQuestions(-7, {}).hiddenOpenQuestionCount(), 0);
    EXPECT_EQ(withQuestions(least, {}).hiddenOpenQuestionCount(), 0);
}

TEST(HiddenOpenQuestionCountDeathTest, stopsTheProgramWhenTheDifferenceOverflows)
{
    EXPECT_DEATH(withQuestions(least, {"a"}).hiddenOpenQuestionCount(), "overflows 64 bits");
}

}  // namespace
}  // namespace quillmere::test
