// The entries of a timeline, and the time of the next one.
#include <quillmere/widget/widget_timeline_plan.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using WidgetTimelinePlan::entries;
using WidgetTimelinePlan::Entry;
using WidgetTimelinePlan::refreshDate;

/// A summary with every field present and a countdown that ends this many seconds after `moment`.
WidgetSnapshot endingAfter(double seconds)
{
    WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    snapshot.countdown->endsAt = moment + seconds;
    snapshot.countdown->frozenRemainingSeconds = 600;
    return snapshot;
}

void expectOneEntry(const WidgetSnapshot& snapshot, Instant now)
{
    EXPECT_EQ(entries(snapshot, now), (std::vector<Entry>{{.date = now, .snapshot = snapshot}}));
    EXPECT_EQ(refreshDate(snapshot, now), now + 1800);
}

TEST(WidgetTimelinePlan, asksAgainAfterHalfAnHourWhenIdle)
{
    EXPECT_EQ(WidgetTimelinePlan::idleRefreshInterval, 1800.0);
}

TEST(WidgetTimelinePlan, hasOneEntryWithoutACountdown)
{
    expectOneEntry(WidgetSnapshot::empty(moment), moment + 5);
    WidgetSnapshot snapshot = WidgetSnapshot::placeholder(moment);
    snapshot.countdown.reset();
    expectOneEntry(snapshot, moment);
}

TEST(WidgetTimelinePlan, hasOneEntryForAPausedCountdownEvenIfItsEndLiesAhead)
{
    WidgetSnapshot snapshot = endingAfter(600);
    snapshot.countdown->isPaused = true;
    expectOneEntry(snapshot, moment);
}

TEST(WidgetTimelinePlan, hasASecondEntryAtTheEndOfARunningCountdown)
{
    const WidgetSnapshot snapshot = endingAfter(600);
    WidgetSnapshot atEnd = snapshot;
    atEnd.countdown->frozenRemainingSeconds = 0;
    EXPECT_EQ(entries(snapshot, moment), (std::vector<Entry>{{.date = moment, .snapshot = snapshot},
                                                             {.date = moment + 600, .snapshot = atEnd}}));
    EXPECT_FALSE(entries(snapshot, moment)[1].snapshot.countdown->isPaused);
}

TEST(WidgetTimelinePlan, asksAgainASecondAfterTheEndOfARunningCountdown)
{
    EXPECT_EQ(refreshDate(endingAfter(600), moment), moment + 601);
    EXPECT_EQ(refreshDate(endingAfter(600), moment + 599.5), moment + 601);
}

TEST(WidgetTimelinePlan, keepsPhaseAndRouteInTheSecondEntry)
{
    const Entry last = entries(endingAfter(600), moment).back();
    EXPECT_EQ(last.snapshot.phase, WidgetPhase::focusing);
    EXPECT_EQ(last.snapshot.route, WidgetRoute::focus);
    EXPECT_EQ(last.snapshot.updatedAt, moment);
}

TEST(WidgetTimelinePlan, takesACountdownThatEndsNowForOneThatHasEnded)
{
    expectOneEntry(endingAfter(600), moment + 600);
}

TEST(WidgetTimelinePlan, hasOneEntryAfterTheEnd)
{
    expectOneEntry(endingAfter(600), moment + 600.001);
    expectOneEntry(endingAfter(-60), moment);
}

TEST(WidgetTimelinePlan, countsACountdownAsRunningToItsLastMoment)
{
    EXPECT_EQ(entries(endingAfter(600), moment + 599.999).size(), 2u);
    EXPECT_EQ(entries(endingAfter(600), moment - 99999).size(), 2u);
}

TEST(WidgetTimelinePlan, hasOneEntryWhenTheInstantIsNotANumber)
{
    const Instant never(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(entries(endingAfter(600), never).size(), 1u);
    WidgetSnapshot snapshot = endingAfter(600);
    snapshot.countdown->endsAt = never;
    EXPECT_EQ(entries(snapshot, moment).size(), 1u);
    EXPECT_EQ(refreshDate(snapshot, moment), moment + 1800);
}

TEST(WidgetTimelinePlanEntry, isEqualOnlyInBothFields)
{
    const Entry one{.date = moment, .snapshot = WidgetSnapshot::empty(moment)};
    EXPECT_EQ(one, (Entry{.date = moment, .snapshot = WidgetSnapshot::empty(moment)}));
    EXPECT_NE(one, (Entry{.date = moment + 1, .snapshot = WidgetSnapshot::empty(moment)}));
    EXPECT_NE(one, (Entry{.date = moment, .snapshot = WidgetSnapshot::empty(moment + 1)}));
}

}  // namespace
}  // namespace quillmere::test
