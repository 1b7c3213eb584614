// The two fixed summaries.
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

TEST(WidgetSnapshotPlaceholder, isASessionInMidFocus)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    EXPECT_EQ(snapshot.schemaVersion, 1);
    EXPECT_EQ(snapshot.phase, WidgetPhase::focusing);
    EXPECT_EQ(snapshot.route, WidgetRoute::focus);
    EXPECT_EQ(snapshot.intendedOutcome, "Draft the widget acceptance notes");
    EXPECT_EQ(snapshot.firstAction, "Open the pull request template");
    EXPECT_EQ(snapshot.sessionsStarted, 3);
    EXPECT_EQ(snapshot.sessionsPlanned, 8);
    EXPECT_EQ(snapshot.currentSessionNumber, 3);
    ASSERT_TRUE(snapshot.countdown);
    EXPECT_EQ(snapshot.countdown->endsAt, moment + 1020);
    EXPECT_EQ(snapshot.countdown->startedAt, moment - 480);
    EXPECT_FALSE(snapshot.countdown->isPaused);
    EXPECT_EQ(snapshot.countdown->frozenRemainingSeconds, 1020);
    EXPECT_EQ(snapshot.energy, 4);
    EXPECT_EQ(snapshot.morale, 4);
    EXPECT_EQ(snapshot.openQuestionCount, 1);
    EXPECT_EQ(snapshot.openQuestions,
              std::vector<std::string>{"Which signing identity should the release use?"});
    EXPECT_EQ(snapshot.updatedAt, moment);
}

TEST(WidgetSnapshotPlaceholder, movesWithTheInstant)
{
    const WidgetSnapshot later = WidgetSnapshot::placeholder(moment + 60);
    EXPECT_EQ(later.countdown->endsAt, moment + 1080);
    EXPECT_EQ(later.countdown->startedAt, moment - 420);
    EXPECT_EQ(later.updatedAt, moment + 60);
}

TEST(WidgetSnapshotEmpty, isIdleWithNothingInIt)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::empty(moment);
    EXPECT_EQ(snapshot.schemaVersion, 1);
    EXPECT_EQ(snapshot.phase, WidgetPhase::idle);
    EXPECT_EQ(snapshot.route, WidgetRoute::idle);
    EXPECT_EQ(snapshot.intendedOutcome, "");
    EXPECT_EQ(snapshot.firstAction, "");
    EXPECT_EQ(snapshot.sessionsStarted, 0);
    EXPECT_EQ(snapshot.sessionsPlanned, 0);
    EXPECT_EQ(snapshot.currentSessionNumber, std::nullopt);
    EXPECT_EQ(snapshot.countdown, std::nullopt);
    EXPECT_EQ(snapshot.energy, std::nullopt);
    EXPECT_EQ(snapshot.morale, std::nullopt);
    EXPECT_EQ(snapshot.openQuestionCount, 0);
    EXPECT_TRUE(snapshot.openQuestions.empty());
    EXPECT_EQ(snapshot.updatedAt, moment);
}

TEST(WidgetSnapshot, isEqualOnlyInEveryField)
{
    const WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    EXPECT_EQ(snapshot, WidgetSnapshot::placeholder(moment));
    const auto differs = [&](auto change) {
        WidgetSnapshot other = snapshot;
        change(other);
        return other != snapshot;
    };
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.schemaVersion = 0; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.phase = WidgetPhase::idle; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.route = WidgetRoute::idle; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.intendedOutcome = ""; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.firstAction = ""; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.sessionsStarted = 0; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.sessionsPlanned = 0; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.currentSessionNumber.reset(); }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.countdown->isPaused = true; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.energy = 1; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.morale = 1; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.openQuestionCount = 0; }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.openQuestions.clear(); }));
    EXPECT_TRUE(differs([](WidgetSnapshot& other) { other.updatedAt = moment + 1; }));
}

}  // namespace
}  // namespace quillmere::test
