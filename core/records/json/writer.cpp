#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/utf8.hpp>
#include <quillmere/records/json/writer.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <utility>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillmere::json {
namespace {

/// The size of the pieces for a sink: small enough for the second-level cache, large enough for few calls.
constexpr std::size_t pieceSize = 128 * 1024;

/// A vector register of characters that are checked and copied together. Signed, so that bytes beyond ASCII
/// are less than a space, like control characters.
using Lanes = signed char __attribute__((vector_size(16)));
constexpr std::size_t step = sizeof(Lanes);

Lanes load(const char* characters)
{
    Lanes lanes;
    std::memcpy(&lanes, characters, step);
    return lanes;
}

void store(char* destination, Lanes lanes) { std::memcpy(destination, &lanes, step); }

/// One bit for each character, the lowest bit for the first: whether it cannot be copied as it is into a JSON
/// string, being beyond ASCII, a control character, a quote or a backslash.
unsigned specialCharacters(Lanes lanes)
{
    // Inverting the second bit turns a quote into a space and a space into a quote. Then only quotes, control
    // characters and bytes beyond ASCII are at most a space.
    const Lanes special = (Lanes)(((lanes ^ 0x02) <= ' ') | (lanes == '\\'));
#ifdef __SSE2__
    return static_cast<unsigned>(_mm_movemask_epi8((__m128i)special));
#else
    unsigned bits = 0;
    for (std::size_t lane = 0; lane < step; ++lane) {
        bits |= (special[lane] != 0 ? 1U : 0U) << lane;
    }
    return bits;
#endif
}

std::size_t lowestBit(unsigned bits) { return static_cast<std::size_t>(std::countr_zero(bits)); }

/// Copies the characters at the front of `rest` up to the first special one, and returns how many. `rest` is
/// the end of a text with `before` more characters in front. May write up to `step` bytes beyond the copy.
std::size_t copyPlainRun(std::string_view rest, std::size_t before, char* destination)
{
    const std::size_t left = rest.size() % step;
    const std::size_t whole = rest.size() - left;
    for (std::size_t done = 0; done < whole; done += step) {
        const Lanes lanes = load(rest.data() + done);
        store(destination + done, lanes);
        if (const unsigned special = specialCharacters(lanes)) {
            return done + lowestBit(special);
        }
    }
    if (left == 0) {
        return whole;
    }
    // Fewer than `step` characters are left: load the last `step` characters of the text, with padding in
    // front of a shorter text, and shift out the bits of those that are already copied.
    char window[2 * step] = {};
    Lanes last;
    if (whole + before + left >= step) {
        last = load(rest.data() + rest.size() - step);
        store(window, last);
    } else {
        std::memcpy(window + step - left, rest.data() + whole, left);
        last = load(window);
    }
    std::memcpy(destination + whole, window + step - left, step);
    return whole + lowestBit(specialCharacters(last) >> (step - left) | 1U << left);
}

/// The escape sequence of an ASCII character.
struct Escape {
    std::array<char, 7> text;  ///< only the first `length` characters count
    std::uint8_t length;
};

/// The escapes by character. The entries of characters that need no escape are not used.
constexpr auto escapes = [] {
    constexpr std::string_view lowerCaseDigits = "0123456789abcdef";
    std::array<Escape, 128> table{};
    for (std::size_t code = 0; code < table.size(); ++code) {
        table[code] = {{'\\', 'u', '0', '0', lowerCaseDigits[code >> 4], lowerCaseDigits[code & 0x0F]}, 6};
    }
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    constexpr std::string_view names = "\"\\bfnrt";
    for (std::size_t index = 0; index < named.size(); ++index) {
        table[static_cast<std::size_t>(named[index])] = {{'\\', names[index]}, 2};
    }
    return table;
}();

/// Writes the special character at the front of `text` and removes it from `text`. There must be room for the
/// bytes of `text` and of an Escape.
char* putSpecial(char* cursor, std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < escapes.size()) {
        const Escape& escape = escapes[first];
        std::memcpy(cursor, &escape, sizeof escape);
        text.remove_prefix(1);
        return cursor + escape.length;
    }
    const Utf8Sequence sequence = frontSequence(text);
    if (!sequence.wellFormed) {
        text.remove_prefix(sequence.length);
        return std::copy(replacementCharacter.begin(), replacementCharacter.end(), cursor);
    }
    for (std::size_t index = 0; index < sequence.length; ++index) {
        cursor[index] = text[index];
    }
    text.remove_prefix(sequence.length);
    return cursor + sequence.length;
}

}  // namespace

char* putBoolean(char* cursor, bool value)
{
    return value ? putText(cursor, FixedText("true")) : putText(cursor, FixedText("false"));
}

char* putInteger(char* cursor, std::int64_t value)
{
    return std::to_chars(cursor, cursor + longestToken, value).ptr;
}

char* putNumber(char* cursor, double value)
{
    const auto whole = std::abs(value) < 1e5 ? static_cast<std::int64_t>(value) : 0;
    if (std::bit_cast<std::uint64_t>(static_cast<double>(whole)) == std::bit_cast<std::uint64_t>(value)) {
        // A whole number, as nearly all durations are. Up to five digits are never longer than a form with an
        // exponent.
        return putInteger(cursor, whole);
    }
    // Beyond 64 bits the exponent form is needed: readers would refuse digits alone as an integer that is too
    // large.
    const bool looksLikeInteger = std::abs(value) < 0x1p63;
    char* const end = cursor + longestToken;
    return (looksLikeInteger ? std::to_chars(cursor, end, value)
                             : std::to_chars(cursor, end, value, std::chars_format::scientific))
        .ptr;
}

char* putIdentifier(char* cursor, const Identifier& identifier)
{
    *cursor++ = '"';
    identifier.writeText(cursor);
    cursor += Identifier::textLength;
    *cursor++ = '"';
    return cursor;
}

char* putInstant(char* cursor, Instant instant)
{
    *cursor++ = '"';
    putDateText(cursor, instant);
    cursor += dateTextLength;
    *cursor++ = '"';
    return cursor;
}

Writer::Writer(std::size_t expectedSize)
{
    begin_ = bytes_.reserve(expectedSize);
    end_ = begin_ + bytes_.capacity();
}

Writer::Writer(const ByteSink& sink) : Writer(pieceSize) { sink_ = &sink; }

std::size_t Writer::sizeUpTo(const char* cursor) const noexcept
{
    return static_cast<std::size_t>(cursor - begin_);
}

char* Writer::grow(char* cursor, std::size_t count)
{
    cursor = handOver(cursor);
    bytes_.commit(sizeUpTo(cursor) - bytes_.size());
    cursor = bytes_.reserve(count);
    begin_ = cursor - bytes_.size();
    end_ = begin_ + bytes_.capacity();
    return cursor;
}

char* Writer::handOver(char* cursor)
{
    if (!sink_) {
        return cursor;
    }
    (*sink_)({begin_, sizeUpTo(cursor)});
    return begin_;
}

Bytes Writer::finish(char* cursor)
{
    cursor = handOver(cursor);
    bytes_.commit(sizeUpTo(cursor) - bytes_.size());
    begin_ = end_ = nullptr;
    return std::move(bytes_);
}

char* Writer::putString(char* cursor, std::string_view text)
{
    // Room for the text without escapes; each escape makes more room below.
    cursor = ensure(cursor, text.size() + step + 2);
    *cursor++ = '"';
    std::string_view rest = text;
    while (true) {
        const std::size_t plain = copyPlainRun(rest, text.size() - rest.size(), cursor);
        cursor += plain;
        rest.remove_prefix(plain);
        if (rest.empty()) {
            break;
        }
        cursor = putSpecial(ensure(cursor, sizeof(Escape) + rest.size() + step + 2), rest);
    }
    *cursor++ = '"';
    return cursor;
}

}  // namespace quillmere::json
