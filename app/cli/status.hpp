// Where the work stands, in the words and figures of the widget's summary.
#pragma once

#include "base/text/hours.hpp"
#include "cli/program.hpp"

#include <iosfwd>

namespace quillmere::cli {

base::Json statusJson(const workspace::Situation& situation);

/// A brief one says the phase, the time, the questions that wait and what is possible; a whole one also what
/// helps now (work::recallAt).
void printStatus(std::ostream& out, const workspace::Situation& situation, const base::Style& style,
                 const config::Values& values, StatusDetail detail = StatusDetail::whole);

/// Prints the phase and what stands beside it: the first line of what a person and a widget see.
void printTitle(std::ostream& out, WidgetPhase phase, std::string_view caption, const base::Style& style);

/// Prints a heading and a text, or nothing when the text is empty.
void printField(std::ostream& out, std::string_view heading, std::string_view text);

}  // namespace quillmere::cli
