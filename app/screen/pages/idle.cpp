// The page while nothing runs: what helps to begin, and the blocks that were finished last.
#include "base/reach.hpp"
#include "base/text/count.hpp"
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "figures/local_day.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"
#include "screen/pages/recall_text.hpp"
#include "work/habits.hpp"
#include "work/recall/block_account.hpp"
#include "work/situation_view.hpp"

#include <cmath>

namespace quillmere::screen {
namespace {

constexpr std::size_t indent = columnsOf(QuillmereDesign::Spacing::regular);
constexpr std::size_t leastRowsOfFinished = 3;  ///< a heading, a time, an outcome

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

/// Of a block that is to begin on this day of the person.
void writeCountdown(Flow& flow, const work::ScheduleView& schedule, const base::SeenFrom& here,
                    const config::Values& values, Look look)
{
    const double wait = schedule.start - here.now;
    const figures::LocalCalendar calendar(work::habitsOf(values).dayBeginsAtHour);
    if (wait > 0 && calendar.dayOf(schedule.start) == calendar.dayOf(here.now)) {
        flow.line("Begins at " + base::localTextSeenFrom(here, schedule.start) + ", " + waitText(wait), look);
        flow.space(QuillmereDesign::Spacing::regular);
    }
}

void writeFinished(Flow& flow, const Block& block, const base::SeenFrom& here)
{
    flow.line(base::localTextSeenFrom(here, base::finishedAt(block)) + ", " +
                  std::to_string(block.sessions.size()) + " of " +
                  base::countText(block.cycleCount, "session"),
              {.bold = true}, indent);
    writeOutcomes(flow, block);
}

/// Those for which there is room.
void writeLastFinished(Flow& flow, const std::vector<Block>& history, const base::SeenFrom& here,
                       Look heading)
{
    if (history.empty() || flow.rowsLeft() < leastRowsOfFinished) {
        return;
    }
    flow.line("Finished last", heading);
    for (const Block& block : history) {
        if (flow.rowsLeft() + 1 < leastRowsOfFinished) {
            break;
        }
        writeFinished(flow, block, here);
    }
}

}  // namespace

void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation,
              const work::Recall& recall, const config::Values& values)
{
    const base::SeenFrom here(situation.now, values.hours);
    const Look heading{.accent = QuillmereDesign::accent(WidgetPhase::planning), .bold = true};
    Flow flow(canvas, area);
    if (const auto schedule = work::SituationView::of(situation).schedule) {
        writeCountdown(flow, *schedule, here, values, heading);
    }
    const Canvas told = textOf(recall, area.columns, canvas.charset(), heading).canvas;
    canvas.copy(told, 0, flow.rest());
    flow.skip(told.size().rows);
    flow.space(QuillmereDesign::Spacing::regular);
    writeLastFinished(flow, situation.state.blockHistory, here, heading);
}

}  // namespace quillmere::screen
