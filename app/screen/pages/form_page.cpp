#include "screen/pages/form_page.hpp"

#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"
#include "work/recall/brief.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t columnsBeforeFacts = 2;  ///< that of the questions
constexpr std::size_t columnsOfForm = 76;      ///< those of a usual window
constexpr std::size_t leastForRecall = 36;
constexpr std::size_t leastRowsForFacts = 18;  ///< of the window, as those below
constexpr std::size_t rowsForOneFact = 8;
constexpr std::size_t mostFacts = 6;

/// It depends on the window alone, so that the fields do not jump when texts become longer or a message
/// comes.
std::size_t factsWithin(Size window)
{
    return window.rows < leastRowsForFacts ? 0 : std::min(window.rows / rowsForOneFact, mostFacts);
}

bool isForRecall(const Area& area) { return area.columns >= columnsOfForm + leastForRecall; }

}  // namespace

FormPage::FormPage(const FormEditor& editor, const work::Recall& recall, Size window, const Area& area)
    : editor_(editor), recall_(recall), above_(area), fields_(area), beside_(area)
{
    beside_.columns = 0;
    if (!recall.empty() && isForRecall(area)) {
        const std::size_t first = columnsOfForm + columnsOf(QuillmereDesign::Spacing::section);
        fields_.columns = columnsOfForm;
        beside_ = {area.row, area.column + first, area.rows, area.columns - first};
    } else {
        facts_ = work::briefOf(work::beside(*editor.form(), recall), factsWithin(window));
    }
    if (const std::size_t rows = rowsAbove(); rows > 0) {
        const bool isCompact = layout(familyFor(window)) == QuillmereWidgetLayout::compact;
        const std::size_t taken = rows + (isCompact ? 0 : rowsOf(QuillmereDesign::Spacing::regular));
        fields_.row += taken;
        fields_.rows -= std::min(taken, fields_.rows);
    }
    above_ = {area.row, area.column + columnsBeforeFacts, rowsAbove(), fields_.columns - columnsBeforeFacts};
}

std::size_t FormPage::rowsAbove() const
{
    return facts_.size() + (editor_.form()->reminder().empty() ? 0 : 1);
}

void FormPage::draw(Canvas& canvas, Look heading) const
{
    Flow flow(canvas, above_);
    if (const std::string& reminder = editor_.form()->reminder(); !reminder.empty()) {
        flow.line(reminder, {.dim = facts_.empty()});
    }
    for (const work::Fact& fact : facts_) {
        flow.field(fact.label, fact.text, {.most = 1});
    }
    editor_.draw(canvas, fields_, heading);
    if (beside_.columns > 0) {
        drawRecall(canvas, beside_, recall_, heading);
    }
}

}  // namespace quillmere::screen
