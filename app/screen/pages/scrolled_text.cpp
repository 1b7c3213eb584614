#include "screen/pages/scrolled_text.hpp"

#include "screen/canvas/flow.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

/// The last row that can be the first in view.
std::size_t lastFirst(std::size_t rows, const Area& area) { return rows - std::min(rows, area.rows); }

}  // namespace

bool ScrolledText::take(const Key& key, std::size_t rows, const Area& area)
{
    const std::size_t last = lastFirst(rows, area);
    const std::size_t first = std::min(first_, last);
    // A row of the page before stays in view.
    const std::size_t page = std::max<std::size_t>(area.rows, 2) - 1;
    switch (key.kind) {
        case Key::Kind::up: first_ = first - std::min<std::size_t>(first, 1); return true;
        case Key::Kind::down: first_ = std::min(first + 1, last); return true;
        case Key::Kind::pageUp: first_ = first - std::min(first, page); return true;
        case Key::Kind::pageDown: first_ = std::min(first + page, last); return true;
        case Key::Kind::home: first_ = 0; return true;
        case Key::Kind::end: first_ = last; return true;
        default: return false;
    }
}

void ScrolledText::draw(Canvas& canvas, const Area& area, const Canvas& text) const
{
    const std::size_t last = lastFirst(text.size().rows, area);
    const std::size_t first = std::min(first_, last);
    canvas.copy(text, first, area);
    drawMoreArrows(canvas, area, first > 0, first < last);
}

}  // namespace quillmere::screen
