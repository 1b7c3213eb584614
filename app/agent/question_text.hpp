// What an agent may write into a question.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::agent {

inline constexpr std::size_t mostCharacters = 2'000;  ///< of a question, in code points

/// The question, in UTF-8, without white space around it (White_Space of the Unicode Character Database).
/// Throws Refusal when nothing in it can be seen, when it is too long, or has control characters (C0, DEL,
/// C1) other than line feed and tab.
std::string askable(std::string_view question);

}  // namespace quillmere::agent
