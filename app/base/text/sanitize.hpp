// Texts of users and agents before they are printed on a terminal or written into files of other formats.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// Replaces control characters (C0, DEL, C1), characters that change the direction of text, separators of
/// lines and paragraphs (U+2028, U+2029) and ill-formed bytes by U+FFFD, so that a text cannot control the
/// terminal or change the order of what is shown. Line breaks (LF, CR LF) and tabs become spaces: the result
/// is one line.
std::string sanitized(std::string_view text);

/// The same, but keeps line breaks (LF, CR) and tabs, for files in which a text may have several lines.
std::string sanitizedLines(std::string_view text);

/// JSON text with the same characters escaped, as far as JSON allows them inside strings.
std::string sanitizedJson(std::string_view json);

/// Whether the text is well-formed UTF-8.
bool isText(std::string_view text);

}  // namespace quillmere::base
