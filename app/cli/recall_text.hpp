// Passages of what a person wrote, as lines of text.
#pragma once

#include "base/text/style.hpp"
#include "work/recall/passage.hpp"

#include <cstddef>
#include <iosfwd>

namespace quillmere::cli {

/// Prints each passage after an empty line: its heading, and its facts with their texts below each other.
/// Lines have at most `columns` columns.
void printRecall(std::ostream& out, const work::Recall& recall, const base::Style& style,
                 std::size_t columns);

/// The columns for texts: those of the terminal, at most 72 and a margin; the same where there is none.
std::size_t textColumns();

}  // namespace quillmere::cli
