#include "screen/pages/text_page.hpp"

namespace quillmere::screen {

std::size_t TextPage::rowsIn(const Area& area) const
{
    return text(ScrolledText::columnsIn(area), Charset::unicode, {}).size().rows;
}

PageStep TextPage::take(const Key& key, const Room& room)
{
    scrolled_.take(key, rowsIn(room.area), room.area);
    return {};
}

std::vector<KeyHint> TextPage::keys(bool scrolls) const
{
    std::vector<KeyHint> hints = ownKeys();
    if (scrolls) {
        hints.push_back({"PgDn", "scroll"});
    }
    hints.push_back({"Esc", "back"});
    hints.push_back({"q", "quit"});
    return hints;
}

bool TextPage::scrolls(const Room& room) const { return rowsIn(room.area) > room.area.rows; }

void TextPage::draw(Canvas& canvas, const Area& area, Look heading) const
{
    scrolled_.draw(canvas, area, text(ScrolledText::columnsIn(area), canvas.charset(), heading));
}

}  // namespace quillmere::screen
