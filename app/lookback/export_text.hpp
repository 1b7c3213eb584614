// Texts of the user in files of other formats.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// Replaces the control characters that text formats do not allow (C0 except tab and line ends, DEL) by
/// U+FFFD. Keeps characters that change the direction of text, unlike base::sanitized: a file contains what
/// the user wrote.
std::string withoutControls(std::string_view text);

}  // namespace quillmere::lookback
