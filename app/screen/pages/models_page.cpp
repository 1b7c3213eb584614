#include "screen/pages/models_page.hpp"

#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t markAndGap = 2;
constexpr std::size_t rowsOfModel = 2;

}  // namespace

PageStep ModelsPage::take(const Key& key, const Room&)
{
    const std::vector<work::Model> models = presenter_.models();
    if (key.kind == Key::Kind::up && chosen_ > 0) {
        --chosen_;
    } else if (key.kind == Key::Kind::down && chosen_ + 1 < models.size()) {
        ++chosen_;
    } else if (key.kind == Key::Kind::enter && chosen_ < models.size()) {
        presenter_.planLike(models[chosen_]);
        return {PageStep::Kind::leaves};
    }
    return {};
}

std::vector<KeyHint> ModelsPage::keys(bool) const
{
    return {{"↑↓", "choose"}, {"Enter", "take its words and lengths"}, {"Esc", "back"}, {"q", "quit"}};
}

void ModelsPage::draw(Canvas& canvas, const Area& area, Look heading) const
{
    const std::vector<work::Model> models = presenter_.models();
    Flow flow(canvas, area);
    flow.line("Plan it like", heading);
    flow.space(QuillmereDesign::Spacing::regular);
    const std::size_t shown = flow.rowsLeft() / rowsOfModel;
    const std::size_t first = chosen_ < shown ? 0 : chosen_ + 1 - shown;
    for (std::size_t index = first; index < models.size() && flow.rowsLeft() >= rowsOfModel; ++index) {
        const bool isChosen = index == chosen_;
        canvas.write({flow.rest().row, area.column}, isChosen ? "▸" : " ", heading);
        flow.line(models[index].name, {.bold = isChosen}, markAndGap);
        flow.line(models[index].note, {.dim = true}, markAndGap);
    }
    drawMoreArrows(canvas, area, first > 0, first + shown < models.size());
}

}  // namespace quillmere::screen
