// Characters that TOML does not allow where they stand.
#pragma once

#include "config/toml_text.hpp"

#include <optional>
#include <string_view>

namespace quillmere::config {

/// The first character beyond ASCII that stands outside of comments and strings, or behind a backslash in a
/// string; absent: there is none. TOML allows neither, and the parser's behaviour is undefined for some of
/// them (toml++ 3.3, for example at "é" in a bare key), so they are found before it runs.
std::optional<TextPlace> strayCharacter(std::string_view text);

}  // namespace quillmere::config
