#include "statefile/tokens.hpp"

#include <quillmere/records/identifier.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>
#include <utility>

namespace quillmere::statefile {
namespace {

constexpr std::size_t longestNumber = 48;
constexpr std::size_t longestEscape = 6;

bool isPlain(char character)
{
    return static_cast<unsigned char>(character) >= 0x20 && static_cast<unsigned char>(character) < 0x80 &&
           character != '"' && character != '\\';
}

constexpr std::uint64_t inEachByte(std::uint64_t byte) { return byte * 0x0101010101010101; }

/// Sets the highest bit of the first byte that is not plain. Bytes above it may be marked too, because a byte
/// that is too small for a subtraction borrows from the next.
std::uint64_t notPlain(std::uint64_t bytes)
{
    return (bytes | (bytes - inEachByte(0x20)) | ((bytes ^ inEachByte('"')) - inEachByte(1)) |
            ((bytes ^ inEachByte('\\')) - inEachByte(1))) &
           inEachByte(0x80);
}

/// How many characters at the front of a text stand in a string as they are: neither a quote nor a backslash,
/// no control character, nothing beyond ASCII.
std::size_t plainRun(std::string_view text)
{
    std::size_t length = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; length + 8 <= text.size(); length += 8) {
            const std::uint64_t special = notPlain(wordAt(text.data() + length));
            if (special != 0) {
                return length + static_cast<std::size_t>(std::countr_zero(special)) / 8;
            }
        }
    }
    while (length < text.size() && isPlain(text[length])) {
        ++length;
    }
    return length;
}

/// Sets the highest bit of each byte between two characters of ASCII. All bytes must be below 0x80.
constexpr std::uint64_t bytesBetween(std::uint64_t bytes, char lowest, char highest)
{
    const std::uint64_t fromLowest = bytes + inEachByte(0x80U - static_cast<unsigned char>(lowest));
    const std::uint64_t beyondHighest = bytes + inEachByte(0x7FU - static_cast<unsigned char>(highest));
    return fromLowest & ~beyondHighest & inEachByte(0x80);
}

/// Eight bytes of a pattern, in which "9" stands for any digit and "F" for a hexadecimal one in upper case.
struct PatternWord {
    std::array<char, 8> literal{};  ///< zero where a digit stands
    std::array<char, 8> isDigit{};  ///< 0x80 where a digit stands
    std::array<char, 8> isHexadecimal{};
};

template <json::FixedText pattern, std::size_t begin>
constexpr PatternWord patternWord = [] {
    PatternWord word;
    for (std::size_t index = 0; index < word.literal.size(); ++index) {
        const char character = pattern.characters[begin + index];
        word.isDigit[index] = character == '9' ? '\x80' : '\0';
        word.isHexadecimal[index] = character == 'F' ? '\x80' : '\0';
        word.literal[index] = character == '9' || character == 'F' ? '\0' : character;
    }
    return word;
}();

inline bool matches(std::uint64_t bytes, const PatternWord& pattern)
{
    const std::uint64_t digits = wordAt(pattern.isDigit.data());
    const std::uint64_t hexadecimal = wordAt(pattern.isHexadecimal.data());
    const std::uint64_t isAny = digits | hexadecimal;
    const std::uint64_t anyBytes = (isAny - (isAny >> 7)) | isAny;
    const std::uint64_t areDigits = bytesBetween(bytes, '0', '9');
    const std::uint64_t areLetters = bytesBetween(bytes, 'A', 'F');
    return (bytes & inEachByte(0x80)) == 0 && (bytes & ~anyBytes) == wordAt(pattern.literal.data()) &&
           (digits & ~areDigits) == 0 && (hexadecimal & ~(areDigits | areLetters)) == 0;
}

/// Eight bytes at a time, some of the last perhaps twice.
template <json::FixedText pattern>
bool matches(const char* text)
{
    constexpr std::size_t lastWord = pattern.characters.size() - 8;
    return [&]<std::size_t... indices>(std::index_sequence<indices...>)
    {
        return (matches(wordAt(text + std::min(8 * indices, lastWord)),
                        patternWord<pattern, std::min(8 * indices, lastWord)>) &&
                ...);
    }
    (std::make_index_sequence<(pattern.characters.size() + 7) / 8>{});
}

int twoDigits(const char* text) { return (text[0] - '0') * 10 + (text[1] - '0'); }

}  // namespace

bool Tokens::takeRestOfString()
{
    for (std::size_t from = 0;;) {
        const std::size_t end = rest_.find('"', from);
        if (end == rest_.npos) {
            isCutOff_ = true;
            return false;
        }
        std::size_t escapes = 0;
        while (escapes < end && rest_[end - escapes - 1] == '\\') {
            ++escapes;
        }
        if (escapes % 2 == 0) {
            rest_.remove_prefix(end + 1);
            return true;
        }
        from = end + 1;
    }
}

bool Tokens::takeRestOfWrittenString()
{
    for (;;) {
        rest_.remove_prefix(plainRun(rest_));
        if (!has(1)) {
            return false;
        }
        const char next = rest_.front();
        if (next == '"') {
            rest_.remove_prefix(1);
            return true;
        }
        if (next == '\\' ? !takeEscape() : !takeMultibyteCharacter()) {
            return false;
        }
    }
}

bool Tokens::takeEscape()
{
    if (!has(2)) {
        return false;
    }
    constexpr std::string_view named = "\"\\bfnrt";
    if (named.find(rest_[1]) != named.npos) {
        rest_.remove_prefix(2);
        return true;
    }
    if (!has(longestEscape) || !rest_.starts_with("\\u00")) {
        return false;
    }
    // The other control characters, in lower case; those with a name are written with it.
    constexpr std::string_view others =
        "01020304050607"
        "0b0e0f"
        "101112131415161718191a1b1c1d1e1f"
        "00";
    const std::string_view digits = rest_.substr(4, 2);
    for (std::size_t index = 0; index < others.size(); index += 2) {
        if (others.substr(index, 2) == digits) {
            rest_.remove_prefix(longestEscape);
            return true;
        }
    }
    return false;
}

bool Tokens::takeMultibyteCharacter()
{
    const json::Utf8Sequence sequence = json::frontSequence(rest_);
    if (static_cast<unsigned char>(rest_.front()) < 0x80 || !sequence.wellFormed) {
        has(4);  // the character may go on
        return false;
    }
    rest_.remove_prefix(sequence.length);
    return true;
}

std::string_view Tokens::numberText()
{
    has(longestNumber);
    const std::size_t end = rest_.substr(0, longestNumber).find_first_of(",\n");
    return rest_.substr(0, end == rest_.npos ? 0 : end);
}

bool Tokens::takeNumber(double& value)
{
    const std::string_view text = numberText();
    char written[longestNumber];
    char* const end = written + longestNumber;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc() ||
        !std::isfinite(value)) {
        return false;
    }
    // As durations are written: short whole numbers as digits, all others as short as they can be.
    const bool isShort = std::abs(value) < 1e5 && std::trunc(value) == value && !std::signbit(value);
    const bool isLong = std::abs(value) >= 0x1p63;
    const std::to_chars_result result =
        isShort  ? std::to_chars(written, end, static_cast<std::int64_t>(value))
        : isLong ? std::to_chars(written, end, value, std::chars_format::scientific)
                 : std::to_chars(written, end, value);
    return text == std::string_view(written, static_cast<std::size_t>(result.ptr - written)) &&
           skip(text.size());
}

bool Tokens::takeInteger(double& value)
{
    const std::string_view text = numberText();
    char written[longestNumber];
    std::int64_t integer = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), integer).ec != std::errc()) {
        return false;
    }
    value = static_cast<double>(integer);
    const char* const end = std::to_chars(written, written + longestNumber, integer).ptr;
    return text == std::string_view(written, static_cast<std::size_t>(end - written)) && skip(text.size());
}

bool Tokens::takeInstant()
{
    if (!has(json::dateTextLength)) {
        return false;
    }
    const char* const text = rest_.data();
    if (!matches<"9999-99-99T99:99:99Z">(text)) {
        return false;
    }
    constexpr int daysOfEveryMonth = 28;
    const int month = twoDigits(text + 5);
    const int day = twoDigits(text + 8);
    const bool isUsual = month >= 1 && month <= 12 && day >= 1 && day <= daysOfEveryMonth &&
                         twoDigits(text + 11) < 24 && twoDigits(text + 14) < 60 && twoDigits(text + 17) < 60;
    return (isUsual || json::instantFromDateText(rest_.substr(0, json::dateTextLength))) &&
           skip(json::dateTextLength);
}

bool Tokens::takeIdentifier()
{
    return has(Identifier::textLength) && matches<"FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF">(rest_.data()) &&
           skip(Identifier::textLength);
}

}  // namespace quillmere::statefile
