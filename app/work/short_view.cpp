#include "work/short_view.hpp"

#include "work/countdown.hpp"
#include "workspace/catching_up.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/widget/design.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillmere::work {
namespace {

/// When the timer of the countdown shows zero. Where the clock was set back to before its start, it stands
/// still until then. Seconds that are no whole ones count for none, as in the engine's timer.
Instant endOf(const WidgetCountdown& countdown, std::int64_t remainingSeconds, Instant now)
{
    const double wait = std::floor(countdown.startedAt.secondsSince1970()) - now.secondsSince1970();
    const bool waits = wait > 0 && !countdown.isPaused;
    return now + static_cast<double>(remainingSeconds) + (waits ? wait : 0);
}

/// The library's caption, except where the page is about the block and the caption about a session.
std::string headingOf(const WidgetSnapshot& snapshot)
{
    switch (snapshot.route) {
        case WidgetRoute::blockPlanning: return "Plan the block";
        case WidgetRoute::blockReview: return "Look back on the block";
        case WidgetRoute::idle:
        case WidgetRoute::sessionPlanning:
        case WidgetRoute::focus:
        case WidgetRoute::sessionReview:
        case WidgetRoute::breakTime: break;
    }
    return QuillmereDesign::caption(snapshot);
}

std::optional<TimerView> timerOf(const workspace::Situation& situation, const WidgetSnapshot& snapshot)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer) {
        return std::nullopt;
    }
    return TimerView{
        .remainingSeconds = timer->remainingSeconds,
        .isPaused = timer->isPaused,
        .usedShare = usedShare(situation).value_or(0),
        .end = endOf(*snapshot.countdown, timer->remainingSeconds, situation.now),
        .pausedSince = timer->isPaused ? situation.state.currentSession()->pausedAt : std::nullopt};
}

std::optional<TimerView> timerOf(const WidgetSnapshot& summary, Instant now)
{
    const std::optional<std::int64_t> remaining = remainingSeconds(summary, now);
    if (!remaining) {
        return std::nullopt;
    }
    return TimerView{.remainingSeconds = *remaining,
                     .isPaused = summary.countdown->isPaused,
                     .usedShare = usedShare(summary, now).value_or(0),
                     .end = endOf(*summary.countdown, *remaining, now)};
}

/// The end of the session in review, if its time ran out.
std::optional<Instant> endOfReviewed(const QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    const bool isInReview = state.workflowState == WorkflowState::sessionReview;
    return isInReview && session && timeRanOut(*session) ? session->endedAt : std::nullopt;
}

std::optional<Instant> overSince(const workspace::Situation& situation, const std::optional<TimerView>& timer)
{
    if (timer) {
        return timer->hasRunOut() ? std::optional(timer->end) : std::nullopt;
    }
    const std::optional<Instant> end = endOfReviewed(situation.state);
    return end && *end <= situation.now ? end : std::nullopt;
}

std::optional<ScheduleView> scheduleOf(const QuillmereState& state)
{
    const std::optional<Block>& block = state.currentBlock;
    if (state.workflowState != WorkflowState::idle || !block || !block->plannedStart) {
        return std::nullopt;
    }
    return ScheduleView{.start = *block->plannedStart, .end = block->plannedEnd()};
}

/// What the end of a focus session makes of the widget's summary.
void endFocus(WidgetSnapshot& summary)
{
    summary.phase = WidgetPhase::reviewing;
    summary.route = WidgetRoute::sessionReview;
    summary.currentSessionNumber.reset();
    summary.countdown.reset();
}

}  // namespace

ShortView ShortView::of(const workspace::Situation& situation)
{
    ShortView view{.snapshot = WidgetSnapshot::make(situation.state, situation.now),
                   .heading = {},
                   .timer = {},
                   .overSince = {},
                   .schedule = scheduleOf(situation.state)};
    view.heading = headingOf(view.snapshot);
    view.timer = timerOf(situation, view.snapshot);
    view.overSince = work::overSince(situation, view.timer);
    return view;
}

ShortView ShortView::of(const SummarizedWork& work, Instant now)
{
    if (!work.state) {
        return of(work.widget, now);
    }
    workspace::Situation situation{.state = *work.state, .events = {}, .now = now};
    situation.events = workspace::catchUp(situation.state, now);
    ShortView view = of(situation);
    view.snapshot.updatedAt = work.widget.updatedAt;
    return view;
}

ShortView ShortView::of(const WidgetSnapshot& summary, Instant now)
{
    ShortView view{
        .snapshot = summary, .heading = {}, .timer = timerOf(summary, now), .overSince = {}, .schedule = {}};
    if (view.timer && view.timer->hasRunOut()) {
        view.overSince = view.timer->end;
        if (summary.phase == WidgetPhase::focusing) {
            endFocus(view.snapshot);
            view.timer.reset();
        }
    }
    view.heading = headingOf(view.snapshot);
    return view;
}

}  // namespace quillmere::work
