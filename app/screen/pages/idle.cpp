// Nothing runs: what is scheduled, and what was finished last.
#include "base/text/duration.hpp"
#include "base/text/local_time.hpp"
#include "screen/flow.hpp"
#include "screen/layout.hpp"
#include "screen/pages/pages.hpp"

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

/// Whole minutes, as long as there are any: seconds that run make nobody calm.
std::string waitText(double seconds)
{
    constexpr double minute = 60;
    return "in " + base::durationText(seconds < minute ? seconds : std::floor(seconds / minute) * minute);
}

void writeSchedule(Flow& flow, const Block& block, Instant now, Look look)
{
    const double wait = *block.plannedStart - now;
    flow.line("Scheduled", look);
    flow.line(base::localTextSeenFrom(now, *block.plannedStart) + " to " +
                  base::localTextSeenFrom(now, block.plannedEnd()) +
                  (wait > 0 ? ", " + waitText(wait) : std::string()),
              {.bold = true}, indent);
    flow.line(std::to_string(block.cycleCount) + " sessions of " +
                  base::durationText(block.focusDurationSeconds) + ", breaks of " +
                  base::durationText(block.breakDurationSeconds),
              {}, indent);
    writeOutcomes(flow, block);
    flow.space(QuillmereDesign::Spacing::regular);
}

void writeFinished(Flow& flow, const Block& block, Instant now, bool isFull)
{
    flow.line(base::localTextSeenFrom(now, block.completedAt.value_or(block.createdAt)) + ", " +
                  std::to_string(block.sessions.size()) + " of " + std::to_string(block.cycleCount) +
                  " sessions",
              {.bold = true}, indent);
    writeOutcomes(flow, block);
    if (isFull && block.reflection && !block.reflection->lessons.empty()) {
        flow.paragraph(block.reflection->lessons, {.dim = true}, indent, 2);
    }
    flow.space(isFull ? QuillmereDesign::Spacing::regular : QuillmereDesign::Spacing::none);
}

}  // namespace

void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation)
{
    const QuillmereState& state = situation.state;
    const bool isFull = showsFullPlan(layout(familyFor(canvas.size())));
    const Look heading{.accent = QuillmereDesign::accent(WidgetPhase::planning), .bold = true};
    Flow flow(canvas, area);
    if (state.currentBlock && state.currentBlock->plannedStart) {
        writeSchedule(flow, *state.currentBlock, situation.now, heading);
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
        writeFinished(flow, block, situation.now, isFull);
    }
}

}  // namespace quillmere::screen
