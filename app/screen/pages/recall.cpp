// What a person wrote, told again beside the clock and the forms.
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t linesOfFact = 3;
constexpr std::size_t factsOfSmallWindow = 2;

}  // namespace

void drawRecall(Canvas& canvas, const Area& area, const work::Recall& recall, Look heading)
{
    const bool isFull = showsFullPlan(layout(familyFor(canvas.size())));
    Flow flow(canvas, area);
    for (const work::Passage& passage : recall) {
        if (isFull) {
            flow.line(passage.heading, heading);
        }
        std::size_t shown = 0;
        for (const work::Fact& fact : passage.facts) {
            if (fact.label.empty()) {
                flow.paragraph(fact.text);
            } else {
                flow.field(fact.label, fact.text, isFull ? linesOfFact : 1);
            }
            if (!isFull && ++shown == factsOfSmallWindow) {
                return;
            }
        }
        flow.space(QuillmereDesign::Spacing::regular);
    }
}

}  // namespace quillmere::screen
