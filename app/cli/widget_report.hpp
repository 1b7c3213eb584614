// The widget's summary on a terminal.
#pragma once

#include "cli/program.hpp"

#include <iosfwd>

namespace quillmere::cli {

base::Json widgetJson(const WidgetSnapshot& snapshot, Instant now);

void printWidget(std::ostream& out, const WidgetSnapshot& snapshot, Instant now, const base::Style& style);

}  // namespace quillmere::cli
