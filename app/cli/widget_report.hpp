// The widget's summary as text and as JSON.
#pragma once

#include "base/json.hpp"
#include "base/text/local_time.hpp"
#include "base/text/style.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

#include <iosfwd>

namespace quillmere::cli {

base::Json widgetJson(const WidgetSnapshot& snapshot, Instant now);

void printWidget(std::ostream& out, const WidgetSnapshot& snapshot, const base::SeenFrom& here,
                 const base::Style& style);

}  // namespace quillmere::cli
