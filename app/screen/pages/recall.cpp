// What a person wrote, told again beside the clock and the forms.
#include "screen/canvas/characters.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t linesOfHeading = 2;
constexpr std::size_t linesOfFact = 3;
constexpr std::size_t factsOfSmallWindow = 1;

void writeFact(Flow& flow, const work::Fact& fact, std::size_t labels, std::size_t lines)
{
    if (labels == 0) {
        flow.paragraph(fact.text);
    } else {
        flow.field(fact.label, fact.text,
                   {.columns = labels,
                    .look = {.completion = fact.completion, .dim = !fact.completion},
                    .most = lines});
    }
}

}  // namespace

void drawRecall(Canvas& canvas, const Area& area, const work::Recall& recall, Look heading)
{
    const bool isFull = showsFullPlan(layout(familyFor(canvas.size())));
    const std::size_t widestLabel = work::labelColumns(recall);
    const std::size_t labels =
        widestLabel == 0 ? 0 : widestLabel + columnsOf(QuillmereDesign::Spacing::regular);
    Flow flow(canvas, area);
    for (const work::Passage& passage : recall) {
        constexpr std::size_t headingAndFact = 2;
        if (!passage.heading.empty()) {
            if (flow.rowsLeft() < headingAndFact && !passage.facts.empty()) {
                return;
            }
            flow.paragraph(passage.heading, heading, 0, isFull ? linesOfHeading : 1);
        }
        std::size_t shown = 0;
        for (const work::Fact& fact : passage.facts) {
            writeFact(flow, fact, labels, isFull ? linesOfFact : 1);
            if (!isFull && ++shown == factsOfSmallWindow) {
                return;
            }
        }
        flow.space(QuillmereDesign::Spacing::regular);
    }
}

}  // namespace quillmere::screen
