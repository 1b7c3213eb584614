// The page of the blocks and templates that a block can be planned after.
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t markAndGap = 2;
constexpr std::size_t rowsOfModel = 2;

}  // namespace

void drawModels(Canvas& canvas, const Area& area, const std::vector<work::Model>& models, std::size_t chosen,
                Look look)
{
    Flow flow(canvas, area);
    flow.line("Plan it like", look);
    flow.space(QuillmereDesign::Spacing::regular);
    const std::size_t shown = flow.rowsLeft() / rowsOfModel;
    const std::size_t first = chosen < shown ? 0 : chosen + 1 - shown;
    for (std::size_t index = first; index < models.size() && flow.rowsLeft() >= rowsOfModel; ++index) {
        const bool isChosen = index == chosen;
        canvas.write({flow.rest().row, area.column}, isChosen ? "▸" : " ", look);
        flow.line(models[index].name, {.bold = isChosen}, markAndGap);
        flow.line(models[index].note, {.dim = true}, markAndGap);
    }
    drawMoreArrows(canvas, area, first > 0, first + shown < models.size());
}

}  // namespace quillmere::screen
