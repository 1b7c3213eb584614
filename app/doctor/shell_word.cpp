#include "doctor/shell_word.hpp"

#include <string_view>

namespace quillmere::doctor {

std::string shellWord(const std::filesystem::path& path)
{
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+,:@%";
    const std::string text = path.string();
    if (text.find_first_not_of(plain) == std::string::npos) {
        return text;
    }
    std::string word = "'";
    for (const char character : text) {
        // A single quote cannot stand in single quotes.
        word += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return word + "'";
}

}  // namespace quillmere::doctor
