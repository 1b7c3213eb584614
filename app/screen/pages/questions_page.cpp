#include "screen/pages/questions_page.hpp"

#include "base/text/columns.hpp"
#include "base/text/local_time.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t numberColumns = 5;
constexpr std::size_t mostLinesOfOthers = 2;

/// The index of the first question shown: the question before the chosen one.
std::size_t firstInView(std::size_t chosen) { return chosen > 1 ? chosen - 1 : 0; }

std::size_t gapRows(Size window)
{
    return rowsOf(layout(familyFor(window)) == QuillmereWidgetLayout::compact
                      ? QuillmereDesign::Spacing::none
                      : QuillmereDesign::Spacing::regular);
}

}  // namespace

PageStep QuestionsPage::take(const Key& key, const Room& room)
{
    const std::vector<AgentQuestion> open = questions();
    if (types(key, "n")) {
        presenter_.openQuestion();
    } else if (key.kind == Key::Kind::up && chosen_ > 0) {
        choose(chosen_ - 1);
    } else if (key.kind == Key::Kind::down && chosen_ + 1 < open.size()) {
        choose(chosen_ + 1);
    } else if (isPageKey(key)) {
        scrolled_.take(key, rowsToRead(room.window, room.area), room.area);
    } else if (key.kind == Key::Kind::enter && !open.empty()) {
        presenter_.openAnswer(open[chosen_]);
    }
    return {};
}

void QuestionsPage::choose(std::size_t question)
{
    if (question != chosen_) {
        scrolled_.toTop();
    }
    chosen_ = question;
}

bool QuestionsPage::follow()
{
    const std::size_t count = questions().size();
    choose(std::min(chosen_, count == 0 ? 0 : count - 1));
    return true;
}

std::vector<KeyHint> QuestionsPage::keys(bool scrolls) const
{
    std::vector<KeyHint> hints;
    if (!questions().empty()) {
        hints = {{"↑↓", "choose"}, {"Enter", "answer"}};
    }
    if (scrolls) {
        hints.push_back({"PgDn", "scroll"});
    }
    hints.push_back({"n", "ask one"});
    hints.push_back({"Esc", "back"});
    hints.push_back({"q", "quit"});
    return hints;
}

std::size_t QuestionsPage::rowsToRead(Size window, const Area& area) const
{
    const std::vector<AgentQuestion> open = questions();
    const std::size_t columns = ScrolledText::columnsIn(area) - numberColumns;
    std::size_t rows = 0;
    for (std::size_t index = firstInView(chosen_); index <= chosen_ && index < open.size(); ++index) {
        const std::size_t lines = base::linesWithin(open[index].question, columns).size();
        rows += (index == chosen_ ? lines : std::min(lines, mostLinesOfOthers) + gapRows(window)) + 1;
    }
    return rows;
}

bool QuestionsPage::scrolls(const Room& room) const
{
    return rowsToRead(room.window, room.area) > room.area.rows;
}

Canvas QuestionsPage::text(std::size_t rows, Size window, const Area& area, Charset charset) const
{
    const std::vector<AgentQuestion> open = questions();
    const base::SeenFrom here(presenter_.situation().now, presenter_.hours());
    const Look look{
        .accent = QuillmereDesign::accent(fromWorkflowState<WidgetPhase>(presenter_.state().workflowState)),
        .bold = true};
    Canvas canvas({.rows = rows, .columns = ScrolledText::columnsIn(area)}, charset);
    Flow flow(canvas, canvas.area());
    for (std::size_t index = firstInView(chosen_); index < open.size() && flow.rowsLeft() > 0; ++index) {
        const bool isChosen = index == chosen_;
        const std::size_t row = flow.rest().row;
        canvas.write({row, 0}, isChosen ? "▸" : " ", look);
        canvas.write({row, 2}, std::to_string(index + 1), isChosen ? look : Look{.dim = true});
        flow.paragraph(open[index].question, {.bold = isChosen}, numberColumns,
                       isChosen ? Canvas::toTheEdge : mostLinesOfOthers);
        flow.line("asked " + base::localTextSeenFrom(here, open[index].createdAt), {.dim = true},
                  numberColumns);
        flow.skip(gapRows(window));
    }
    return canvas;
}

void QuestionsPage::draw(Canvas& canvas, const Area& area, Look) const
{
    if (questions().empty()) {
        Flow(canvas, area).line("No question waits for an answer.");
        return;
    }
    // Questions below the chosen one fill the rest of the area.
    const std::size_t rows = std::max(rowsToRead(canvas.size(), area), area.rows);
    scrolled_.draw(canvas, area, text(rows, canvas.size(), area, canvas.charset()));
}

}  // namespace quillmere::screen
