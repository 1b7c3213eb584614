// Texts without a visible character.
#pragma once

#include <string_view>

namespace quillmere::base {

/// Whether the text is empty or of spaces and line ends only.
inline bool isBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\n\v\f\r") == std::string_view::npos;
}

}  // namespace quillmere::base
