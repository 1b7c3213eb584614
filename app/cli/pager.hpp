// Long texts for a person.
#pragma once

#include "base/environment.hpp"

#include <string>

namespace quillmere::cli {

/// Prints the text; on a terminal in the pager of this user, a command of the shell: $PAGER, or less. A pager
/// that is less ends at once when the text fits on the screen and keeps its colours (LESS=FRX, unless LESS is
/// set). With PAGER empty or "cat", and where the pager cannot be run, the text is printed as it is.
void page(base::Environment& environment, const std::string& text);

}  // namespace quillmere::cli
