// Where the work stands, in the words and figures of the widget's summary.
#pragma once

#include "base/text/hours.hpp"
#include "cli/program.hpp"

#include <iosfwd>

namespace quillmere::cli {

base::Json statusJson(const workspace::Situation& situation);

void printStatus(std::ostream& out, const workspace::Situation& situation, const base::Style& style,
                 base::Hours hours);

/// The phase, the caption and, while a timer runs, the time left and a bar: the first lines of what a
/// person and a widget see. The bar shows `progress`.
void printHeadline(std::ostream& out, const WidgetSnapshot& snapshot, Instant now,
                   std::optional<double> progress, const base::Style& style);

/// Prints a heading and a text, or nothing when the text is empty.
void printField(std::ostream& out, std::string_view heading, std::string_view text);

}  // namespace quillmere::cli
