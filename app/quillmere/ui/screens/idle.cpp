// Nothing runs: what is scheduled, and what was finished last.
#include "text/duration.hpp"
#include "text/local_time.hpp"
#include "ui/flow.hpp"
#include "ui/layout.hpp"
#include "ui/screens/screens.hpp"

#include <cmath>

namespace quillmere::app::ui {
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
    return "in " + durationText(seconds < minute ? seconds : std::floor(seconds / minute) * minute);
}

void writeSchedule(Flow& flow, const Block& block, Instant now, Look look)
{
    const double wait = *block.plannedStart - now;
    flow.line("Scheduled", look);
    flow.line(localTextSeenFrom(now, *block.plannedStart) + " to " +
                  localTextSeenFrom(now, block.plannedEnd()) +
                  (wait > 0 ? ", " + waitText(wait) : std::string()),
              {.bold = true}, indent);
    flow.line(std::to_string(block.cycleCount) + " sessions of " + durationText(block.focusDurationSeconds) +
                  ", breaks of " + durationText(block.breakDurationSeconds),
              {}, indent);
    writeOutcomes(flow, block);
    flow.space(QuillmereDesign::Spacing::regular);
}

void writeFinished(Flow& flow, const Block& block, Instant now, bool isFull)
{
    flow.line(localTextSeenFrom(now, block.completedAt.value_or(block.createdAt)) + ", " +
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

void drawIdle(Canvas& canvas, const Area& area, const Situation& situation)
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

}  // namespace quillmere::app::ui
