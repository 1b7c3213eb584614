#include "screen/pages/keys_page.hpp"

#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/work_keys.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t keyColumns = 8;
constexpr std::size_t rowsOfHeading = 1 + rowsOf(QuillmereDesign::Spacing::regular);

/// With a heading where there is room.
std::size_t rowsFor(std::size_t keys, const Area& area)
{
    return keys + (keys + rowsOfHeading <= area.rows ? rowsOfHeading : 0);
}

}  // namespace

PageStep KeysPage::take(const Key& key, const Room& room)
{
    if (types(key, keysKey)) {
        return {PageStep::Kind::leaves};
    }
    const bool hasScrolled = scrolled_.take(key, rowsFor(allKeys(presenter_).size(), room.area), room.area);
    return {hasScrolled ? PageStep::Kind::stays : PageStep::Kind::isForTheWork};
}

std::vector<KeyHint> KeysPage::keys(bool scrolls) const
{
    std::vector<KeyHint> hints{{"Esc", "back"}};
    if (scrolls) {
        hints.insert(hints.begin(), {"PgDn", "scroll"});
    }
    return hints;
}

bool KeysPage::scrolls(const Room& room) const
{
    return rowsFor(allKeys(presenter_).size(), room.area) > room.area.rows;
}

void KeysPage::draw(Canvas& canvas, const Area& area, Look heading) const
{
    const std::vector<KeyHint> keys = allKeys(presenter_);
    const std::size_t rows = rowsFor(keys.size(), area);
    Canvas text({.rows = rows, .columns = ScrolledText::columnsIn(area)}, canvas.charset());
    Flow flow(text, text.area());
    if (rows > keys.size()) {
        flow.line("What is possible now", heading);
        flow.space(QuillmereDesign::Spacing::regular);
    }
    for (const KeyHint& hint : keys) {
        text.write({flow.rest().row, 0}, hint.key, {.bold = true});
        flow.line(hint.label, {}, keyColumns);
    }
    scrolled_.draw(canvas, area, text);
}

}  // namespace quillmere::screen
