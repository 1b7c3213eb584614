// What every display shows, from the state and from the summaries.
#include "work/short_view.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using work::ShortView;
using work::SummarizedWork;

ShortView seen(const QuillmereState& state, double seconds)
{
    return ShortView::of({state, {}, moment + seconds});
}

/// As it was saved at `moment`.
SummarizedWork summarized(const QuillmereState& state)
{
    const StateStore store({}, StateStore::renameReplacing);
    return SummarizedWork::of(WidgetSnapshot::make(state, moment), store.agentSnapshot(state, std::nullopt));
}

/// A session that began at `moment` and was paused a minute for each of these.
QuillmereState focusWithPauses(int minutes)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().accumulatedPausedSeconds = 60 * minutes;
    return state;
}

QuillmereState reviewOfASessionEndedAfter(double seconds)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.currentBlock->sessions.back().endedAt = moment + seconds;
    return state;
}

TEST(ShortView, hasAHeadingForEachPage)
{
    const std::pair<WorkflowState, const char*> headings[] = {
        {WorkflowState::idle, "No active block"},
        {WorkflowState::blockPlanning, "Plan the block"},
        {WorkflowState::sessionPlanning, "Plan the next session"},
        {WorkflowState::focusing, "Session 1 of 3"},
        {WorkflowState::sessionReview, "Review this session"},
        {WorkflowState::breaking, "Break"},
        {WorkflowState::blockReview, "Look back on the block"},
        {WorkflowState::complete, "Block complete"},
    };
    for (const auto& [state, heading] : headings) {
        EXPECT_EQ(seen(stateIn(state), 0).heading, heading);
        EXPECT_EQ(ShortView::of(summarized(stateIn(state)), moment).heading, heading);
    }
}

TEST(ShortView, endsWhereTheClockShowsTheEndAlsoBeforeTheStart)
{
    for (const double now : {-3'600.0, -1.0, 0.0, 700.0, 2'000.0}) {
        SCOPED_TRACE(now);
        EXPECT_EQ(seen(focusWithPauses(2), now).timer->end, moment + 1'620);
        const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::breaking), moment - 900);
        EXPECT_EQ(ShortView::of(summary, moment + now).timer->end, moment + 300);
    }
}

TEST(ShortView, isOverSinceTheEndOfABreakOrOfTheSessionInReview)
{
    EXPECT_EQ(seen(stateIn(WorkflowState::breaking), 299).overSince, std::nullopt);
    EXPECT_EQ(seen(stateIn(WorkflowState::breaking), 300).overSince, moment + 300);
    EXPECT_EQ(seen(stateIn(WorkflowState::breaking), 9'000).overSince, moment + 300);
    EXPECT_EQ(seen(reviewOfASessionEndedAfter(1'500), 9'000).overSince, moment + 1'500);
}

TEST(ShortView, isNotOverWhenThePersonEndedTheSession)
{
    EXPECT_EQ(seen(reviewOfASessionEndedAfter(1'499), 9'000).overSince, std::nullopt);
}

TEST(ShortView, isNotOverBeforeTheEndOfASessionByAClockThatWasSetBack)
{
    EXPECT_EQ(seen(reviewOfASessionEndedAfter(1'500), 1'499).overSince, std::nullopt);
    EXPECT_EQ(seen(reviewOfASessionEndedAfter(1'500), 1'500).overSince, moment + 1'500);
}

TEST(ShortView, ofSummariesEndsASessionThatNobodyHasEnded)
{
    for (const SummarizedWork& work :
         {summarized(focusWithPauses(1)),
          SummarizedWork::of(WidgetSnapshot::make(focusWithPauses(1), moment), std::nullopt)}) {
        EXPECT_EQ(ShortView::of(work, moment + 1'559).snapshot.phase, WidgetPhase::focusing);
        const ShortView view = ShortView::of(work, moment + 1'560);
        EXPECT_EQ(view.snapshot.phase, WidgetPhase::reviewing);
        EXPECT_EQ(view.snapshot.route, WidgetRoute::sessionReview);
        EXPECT_EQ(view.heading, "Review this session");
        EXPECT_EQ(view.timer.has_value(), false);
        EXPECT_EQ(view.overSince, moment + 1'560);
        EXPECT_EQ(view.snapshot.currentSessionNumber, std::nullopt);
        EXPECT_EQ(view.snapshot.updatedAt, moment);
    }
}

TEST(ShortView, ofSummariesBeginsAScheduledBlockThatNobodyHasBegun)
{
    const SummarizedWork work = summarized(stateWithScheduledBlock());
    EXPECT_EQ(ShortView::of(work, moment + 3'599).schedule->start, moment + 3'600);
    EXPECT_EQ(ShortView::of(work, moment + 3'600).snapshot.route, WidgetRoute::sessionPlanning);
}

TEST(ShortView, ofSummariesStandsStillInAPauseInWhichSomethingIsSaved)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment - 1;
    state.currentBlock->sessions.back().startedAt = moment - 601;
    for (const double now : {0.0, 500.0, 1'000'000.0}) {
        const ShortView view = ShortView::of(summarized(state), moment + now);
        EXPECT_EQ(view.timer->usedShare, 0.4);
        EXPECT_EQ(view.timer->pausedSince, moment - 1);
    }
}

}  // namespace
}  // namespace quillmere::test
