// The page while nothing runs: the scheduled block and the finished blocks.
#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"
#include "work/situation_view.hpp"

#include <cmath>

namespace quillmere::screen {
namespace {

constexpr std::size_t indent = columnsOf(QuillmereDesign::Spacing::regular);

void writeOutcomes(Flow& flow, const Block& block)
{
    for (const Outcome& outcome : block.outcomes) {
        if (!outcome.title.empty()) {
            flow.paragraph("• " + outcome.title, {}, indent, 2);
        }
    }
}

/// Whole minutes, and seconds only in the last minute: running seconds distract.
std::string waitText(double seconds)
{
    constexpr double minute = 60;
    return "in " + base::durationText(seconds < minute ? seconds : std::floor(seconds / minute) * minute);
}

void writeSchedule(Flow& flow, const Block& block, const work::ScheduleView& schedule,
                   const base::SeenFrom& here, Look look)
{
    const double wait = schedule.start - here.now;
    flow.line("Scheduled", look);
    flow.line(base::localTextSeenFrom(here, schedule.start) + " to " +
                  base::localTextSeenFrom(here, schedule.end) +
                  (wait > 0 ? ", " + waitText(wait) : std::string()),
              {.bold = true}, indent);
    flow.line(base::countText(block.cycleCount, "session") + " of " +
                  base::durationText(block.focusDurationSeconds) + ", breaks of " +
                  base::durationText(block.breakDurationSeconds),
              {}, indent);
    writeOutcomes(flow, block);
    flow.space(QuillmereDesign::Spacing::regular);
}

void writeFinished(Flow& flow, const Block& block, const base::SeenFrom& here, bool isFull)
{
    flow.line(base::localTextSeenFrom(here, block.completedAt.value_or(block.createdAt)) + ", " +
                  std::to_string(block.sessions.size()) + " of " +
                  base::countText(block.cycleCount, "session"),
              {.bold = true}, indent);
    writeOutcomes(flow, block);
    if (isFull && block.reflection && !block.reflection->lessons.empty()) {
        flow.paragraph(block.reflection->lessons, {.dim = true}, indent, 2);
    }
    flow.space(isFull ? QuillmereDesign::Spacing::regular : QuillmereDesign::Spacing::none);
}

}  // namespace

void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation, base::Hours hours)
{
    const base::SeenFrom here(situation.now, hours);
    const QuillmereState& state = situation.state;
    const bool isFull = showsFullPlan(layout(familyFor(canvas.size())));
    const Look heading{.accent = QuillmereDesign::accent(WidgetPhase::planning), .bold = true};
    Flow flow(canvas, area);
    if (const auto schedule = work::SituationView::of(situation).schedule) {
        writeSchedule(flow, *state.currentBlock, *schedule, here, heading);
    } else {
        flow.paragraph("Nothing is scheduled.");
        flow.space(QuillmereDesign::Spacing::regular);
    }
    if (!state.blockHistory.empty()) {
        flow.line("Finished last", heading);
    }
    for (const Block& block : state.blockHistory) {
        if (flow.rowsLeft() < 2) {
            break;
        }
        writeFinished(flow, block, here, isFull);
    }
}

}  // namespace quillmere::screen
