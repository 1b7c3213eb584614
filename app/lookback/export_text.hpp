// Texts of persons on their way into a file of another kind.
#pragma once

#include <quillmere/records/instant.hpp>

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// The text with every control character that no text format takes (C0 but for tab and line ends, DEL)
/// replaced by U+FFFD. Files show what was written; so what turns the direction of text stays.
std::string withoutControls(std::string_view text);

/// "2026-11-15T15:00:00Z", for years that files can name.
std::string utcText(Instant instant);

}  // namespace quillmere::lookback
