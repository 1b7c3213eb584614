// Texts of persons and agents on their way to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// The text with every control character (C0, DEL, C1), every mark that turns the direction of text,
/// every separator of lines or paragraphs (U+2028, U+2029) and every ill-formed byte replaced by U+FFFD,
/// so that it can only be read, never obeyed, and reads in the order in which it stands. Line breaks
/// (LF, CR LF) and tabs become spaces: one text, one line.
std::string sanitized(std::string_view text);

/// JSON text with all of these that JSON allows inside strings escaped.
std::string sanitizedJson(std::string_view json);

/// Whether the text is well-formed UTF-8.
bool isText(std::string_view text);

}  // namespace quillmere::base
