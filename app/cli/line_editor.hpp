// One line that a person edits on a terminal.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillmere::cli {

struct LineRequest {
    std::string prompt;                     ///< one line, sanitized
    std::vector<std::string> earlier = {};  ///< lines that the arrow keys bring, newest first
    bool takesLines = false;                ///< whether a pasted line break stays one, or becomes a space
    int input;                              ///< the descriptors of the terminal
    int output;
};

/// Whether both are open on a terminal.
bool canEditLines(int input, int output);

/// Shows the prompt and lets the person edit a line: cursor, words, the earlier lines, paste. The line is
/// well-formed UTF-8 without control characters, except line breaks that were pasted where they are taken.
/// Absent at Control-D on an empty line, and when the terminal is gone. The terminal has its modes back
/// afterwards, also when a signal ends or stops the program meanwhile. Throws `std::system_error`.
std::optional<std::string> editLine(const LineRequest& request);

}  // namespace quillmere::cli
