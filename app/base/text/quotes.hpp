// Quoting in messages.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// The text as a person gave it, between quotation marks.
inline std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace quillmere::base
