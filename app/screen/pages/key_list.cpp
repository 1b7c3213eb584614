// The page of all keys.
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t keyColumns = 8;

}  // namespace

void drawKeyList(Canvas& canvas, const Area& area, const std::vector<KeyHint>& keys, Look look)
{
    Flow flow(canvas, area);
    if (area.rows > keys.size() + rowsOf(QuillmereDesign::Spacing::regular)) {
        flow.line("What is possible now", look);
        flow.space(QuillmereDesign::Spacing::regular);
    }
    for (const KeyHint& hint : keys) {
        if (flow.rowsLeft() == 0) {
            break;
        }
        canvas.write({flow.rest().row, area.column}, hint.key, {.bold = true});
        flow.line(hint.label, {}, keyColumns);
    }
}

}  // namespace quillmere::screen
