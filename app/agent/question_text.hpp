// The text of an agent's question.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::agent {

inline constexpr std::size_t mostCharacters = 2'000;  ///< of a question, in code points

/// The question, in UTF-8, without surrounding white space (White_Space of the Unicode Character Database).
/// Throws ToolRefusal when it has no visible character, is too long, or has a control character (C0, DEL, C1)
/// other than line feed and tab.
std::string askable(std::string_view question);

}  // namespace quillmere::agent
