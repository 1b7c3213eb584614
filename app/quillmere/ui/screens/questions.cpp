// The questions of agents.
#include "text/local_time.hpp"
#include "ui/flow.hpp"
#include "ui/layout.hpp"
#include "ui/screens/screens.hpp"

namespace quillmere::app::ui {
namespace {

constexpr std::size_t numberColumns = 5;
constexpr std::size_t mostLinesOfOthers = 2;

}  // namespace

void drawQuestions(Canvas& canvas, const Area& area, const Situation& situation, std::size_t chosen)
{
    const std::vector<AgentQuestion> questions = situation.state.openQuestions();
    const Look look{
        .accent = QuillmereDesign::accent(fromWorkflowState<WidgetPhase>(situation.state.workflowState)),
        .bold = true};
    Flow flow(canvas, area);
    if (questions.empty()) {
        flow.line("No question waits for an answer.");
        return;
    }
    // The chosen one comes into view with the one before it.
    const std::size_t first = chosen > 1 ? chosen - 1 : 0;
    for (std::size_t index = first; index < questions.size() && flow.rowsLeft() > 0; ++index) {
        const bool isChosen = index == chosen;
        const std::size_t row = flow.rest().row;
        canvas.write({row, area.column}, isChosen ? "▸" : " ", look);
        canvas.write({row, area.column + 2}, std::to_string(index + 1), isChosen ? look : Look{.dim = true});
        flow.paragraph(questions[index].question, {.bold = isChosen}, numberColumns,
                       isChosen ? Canvas::toTheEdge : mostLinesOfOthers);
        flow.line("asked " + localTextSeenFrom(situation.now, questions[index].createdAt), {.dim = true},
                  numberColumns);
        flow.space(layout(familyFor(canvas.size())) == QuillmereWidgetLayout::compact
                       ? QuillmereDesign::Spacing::none
                       : QuillmereDesign::Spacing::regular);
    }
}

}  // namespace quillmere::app::ui
