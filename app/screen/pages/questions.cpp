// The page of the open questions.
#include "base/text/columns.hpp"
#include "base/text/local_time.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t numberColumns = 5;
constexpr std::size_t mostLinesOfOthers = 2;

/// The index of the first question shown: the question before the chosen one.
std::size_t firstInView(std::size_t chosen) { return chosen > 1 ? chosen - 1 : 0; }

/// The columns of the texts; the last column of the area is for the arrows.
std::size_t textColumns(const Area& area) { return area.columns - 1; }

std::size_t gapRows(Size window)
{
    return rowsOf(layout(familyFor(window)) == QuillmereWidgetLayout::compact
                      ? QuillmereDesign::Spacing::none
                      : QuillmereDesign::Spacing::regular);
}

void writeQuestions(Canvas& canvas, const std::vector<AgentQuestion>& questions,
                    const workspace::Situation& situation, std::size_t chosen, std::size_t gap,
                    base::Hours hours)
{
    const Look look{
        .accent = QuillmereDesign::accent(fromWorkflowState<WidgetPhase>(situation.state.workflowState)),
        .bold = true};
    Flow flow(canvas, canvas.area());
    for (std::size_t index = firstInView(chosen); index < questions.size() && flow.rowsLeft() > 0; ++index) {
        const bool isChosen = index == chosen;
        const std::size_t row = flow.rest().row;
        canvas.write({row, 0}, isChosen ? "▸" : " ", look);
        canvas.write({row, 2}, std::to_string(index + 1), isChosen ? look : Look{.dim = true});
        flow.paragraph(questions[index].question, {.bold = isChosen}, numberColumns,
                       isChosen ? Canvas::toTheEdge : mostLinesOfOthers);
        flow.line("asked " + base::localTextSeenFrom({situation.now, hours}, questions[index].createdAt),
                  {.dim = true}, numberColumns);
        flow.skip(gap);
    }
}

}  // namespace

std::size_t mostScrolled(Size window, const Area& area, const workspace::Situation& situation,
                         std::size_t chosen)
{
    const std::vector<AgentQuestion> questions = situation.state.openQuestions();
    std::size_t rows = 0;
    for (std::size_t index = firstInView(chosen); index <= chosen && index < questions.size(); ++index) {
        const std::size_t lines =
            base::linesWithin(questions[index].question, textColumns(area) - numberColumns).size();
        rows += (index == chosen ? lines : std::min(lines, mostLinesOfOthers) + gapRows(window)) + 1;
    }
    return rows - std::min(rows, area.rows);
}

void drawQuestions(Canvas& canvas, const Area& area, const workspace::Situation& situation,
                   std::size_t chosen, std::size_t scrolled, base::Hours hours)
{
    const std::vector<AgentQuestion> questions = situation.state.openQuestions();
    if (questions.empty()) {
        Flow(canvas, area).line("No question waits for an answer.");
        return;
    }
    const std::size_t most = mostScrolled(canvas.size(), area, situation, chosen);
    const std::size_t first = std::min(scrolled, most);
    Canvas whole({.rows = first + area.rows, .columns = textColumns(area)}, canvas.charset());
    writeQuestions(whole, questions, situation, chosen, gapRows(canvas.size()), hours);
    canvas.copy(whole, first, area);
    drawMoreArrows(canvas, area, first > 0, first < most);
}

}  // namespace quillmere::screen
