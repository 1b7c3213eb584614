// Texts in lower case.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// The text with the letters A to Z in lower case, whatever the locale is.
inline std::string lowerCase(std::string_view text)
{
    std::string lower;
    lower.reserve(text.size());
    for (const char letter : text) {
        const bool isUpper = letter >= 'A' && letter <= 'Z';
        lower += isUpper ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return lower;
}

}  // namespace quillmere::base
