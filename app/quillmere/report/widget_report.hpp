// The widget's summary on a terminal.
#pragma once

#include "program.hpp"

#include <iosfwd>

namespace quillmere::app {

Json widgetJson(const WidgetSnapshot& snapshot, Instant now);

void printWidget(std::ostream& out, const WidgetSnapshot& snapshot, Instant now, const Style& style);

}  // namespace quillmere::app
