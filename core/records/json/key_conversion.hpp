// Converts keys between the lowerCamelCase of the fields and the snake_case of the files.
#pragma once

#include <quillmere/records/json/fixed_text.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::json {

// For ASCII only, and independent of the locale.
constexpr bool isLower(char character) { return character >= 'a' && character <= 'z'; }
constexpr bool isUpper(char character) { return character >= 'A' && character <= 'Z'; }
constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }
constexpr char toLower(char character)
{
    return isUpper(character) ? static_cast<char>(character - 'A' + 'a') : character;
}
constexpr char toUpper(char character)
{
    return isLower(character) ? static_cast<char>(character - 'a' + 'A') : character;
}

/// Whether a word of a camelCase key starts at `index`: at a capital after a small letter or a digit, and at
/// the last of several capitals if a small letter follows.
constexpr bool startsWord(std::string_view key, std::size_t index)
{
    if (index == 0 || !isUpper(key[index])) {
        return false;
    }
    const char before = key[index - 1];
    const bool endsRun = isUpper(before) && index + 1 < key.size() && isLower(key[index + 1]);
    return isLower(before) || isDigit(before) || endsRun;
}

/// Calls `put` with each character of the snake_case form.
template <class Put>
constexpr void convertToSnakeCase(std::string_view key, Put put)
{
    for (std::size_t index = 0; index < key.size(); ++index) {
        if (startsWord(key, index)) {
            put('_');
        }
        put(toLower(key[index]));
    }
}

/// Calls `put` with each character of the camelCase form: the words between underscores, the first word
/// unchanged, each later word with a capital followed by small letters. Underscores at both ends are kept.
template <class Put>
constexpr void convertToCamelCase(std::string_view key, Put put)
{
    const std::size_t first = key.find_first_not_of('_');
    const std::size_t last = key.find_last_not_of('_');
    bool inFirstWord = true;
    bool atWordStart = false;
    for (std::size_t index = 0; index < key.size(); ++index) {
        const char character = key[index];
        const bool inside = first != std::string_view::npos && index >= first && index <= last;
        if (inside && character == '_') {
            inFirstWord = false;
            atWordStart = true;
        } else if (!inside || inFirstWord) {
            put(character);
        } else {
            put(atWordStart ? toUpper(character) : toLower(character));
            atWordStart = false;
        }
    }
}

inline std::string camelCase(std::string_view key)
{
    std::string converted;
    convertToCamelCase(key, [&](char character) { converted.push_back(character); });
    return converted;
}

template <FixedText key>
constexpr std::size_t snakeCaseLength = [] {
    std::size_t length = 0;
    convertToSnakeCase(key.view(), [&](char) { ++length; });
    return length;
}();

/// The snake_case form of a key, at compile time.
template <FixedText key>
constexpr FixedText<snakeCaseLength<key>> snakeCase = [] {
    FixedText<snakeCaseLength<key>> text;
    std::size_t length = 0;
    convertToSnakeCase(key.view(), [&](char character) { text.characters[length++] = character; });
    return text;
}();

/// Whether the snake_case form of a key converts back to the same key. Otherwise the key could be written but
/// not be read.
template <FixedText key>
constexpr bool survivesConversion = [] {
    std::array<char, snakeCaseLength<key>> buffer{};
    std::size_t length = 0;
    convertToCamelCase(snakeCase<key>.view(), [&](char character) { buffer[length++] = character; });
    return std::string_view(buffer.data(), length) == key.view();
}();

}  // namespace quillmere::json
