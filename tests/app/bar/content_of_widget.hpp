// The content of a bar that knows the widget's summary alone.
#pragma once

#include "bar/bar_content.hpp"

namespace quillmere::test {

inline bar::BarContent contentOfWidget(const WidgetSnapshot& summary, Instant now, std::size_t width)
{
    return bar::barContent(work::ShortView::of(summary, now), now, width);
}

}  // namespace quillmere::test
