#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/utf8.hpp>
#include <quillmere/records/json/writer.hpp>

#include <bit>
#include <charconv>
#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillmere::json {
namespace {

/// The longest text of an integer or of a double in its shortest form, with room to spare.
constexpr std::size_t longestNumber = 32;

/// The most bytes that one byte of a text can turn into: \u001f.
constexpr std::size_t longestEscape = 6;

/// Characters looked at and copied together.
constexpr std::size_t step = 16;

/// One bit for each of the `step` characters at `text`, the first one lowest, that does not stand for
/// itself in a JSON string: what is beyond ASCII, control characters, quote and backslash.
unsigned specialCharacters(const char* text)
{
#ifdef __SSE2__
    const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    // Signed, so that what is beyond ASCII lies below the control characters.
    const __m128i outside = _mm_cmplt_epi8(characters, _mm_set1_epi8(0x20));
    const __m128i quote = _mm_cmpeq_epi8(characters, _mm_set1_epi8('"'));
    const __m128i backslash = _mm_cmpeq_epi8(characters, _mm_set1_epi8('\\'));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(outside, _mm_or_si128(quote, backslash))));
#else
    unsigned special = 0;
    for (std::size_t index = 0; index < step; ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const bool plain = byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\';
        special |= (plain ? 0U : 1U) << index;
    }
    return special;
#endif
}

/// Copies the characters that stand for themselves at the front of `source` and returns how many. May
/// write, as scratch, up to `step` bytes more than `source` has.
std::size_t copyPlainRun(std::string_view source, char* destination)
{
    std::size_t done = 0;
    for (; source.size() - done >= step; done += step) {
        std::memcpy(destination + done, source.data() + done, step);
        if (const unsigned special = specialCharacters(source.data() + done)) {
            return done + static_cast<std::size_t>(std::countr_zero(special));
        }
    }
    const std::size_t left = source.size() - done;
    if (left == 0) {
        return done;
    }
    if (done > 0) {
        // A last step that overlaps the one before.
        const char* const last = source.data() + source.size() - step;
        std::memcpy(destination + source.size() - step, last, step);
        const unsigned special = specialCharacters(last) | 1U << step;
        return source.size() - step + static_cast<std::size_t>(std::countr_zero(special));
    }
    // Too short for a step: the zeros behind it are special, so that they end the run.
    char padded[step] = {};
    std::memcpy(padded, source.data(), left);
    std::memcpy(destination, padded, step);
    return static_cast<std::size_t>(std::countr_zero(specialCharacters(padded)));
}

/// Writes one ASCII character that does not stand for itself; returns the end.
char* putEscaped(char* destination, char character)
{
    constexpr std::string_view lowerCaseDigits = "0123456789abcdef";
    *destination++ = '\\';
    switch (character) {
        case '"':
        case '\\': *destination++ = character; return destination;
        case '\b': *destination++ = 'b'; return destination;
        case '\f': *destination++ = 'f'; return destination;
        case '\n': *destination++ = 'n'; return destination;
        case '\r': *destination++ = 'r'; return destination;
        case '\t': *destination++ = 't'; return destination;
        default: break;
    }
    const auto byte = static_cast<unsigned char>(character);
    for (const char next : {'u', '0', '0', lowerCaseDigits[byte >> 4], lowerCaseDigits[byte & 0x0F]}) {
        *destination++ = next;
    }
    return destination;
}

}  // namespace

Writer::Writer(std::size_t expectedSize)
{
    begin_ = cursor_ = bytes_.reserve(expectedSize);
    end_ = begin_ + bytes_.capacity();
}

void Writer::grow(std::size_t count)
{
    bytes_.commit(position());
    cursor_ = bytes_.reserve(count);
    begin_ = cursor_ - bytes_.size();
    end_ = begin_ + bytes_.capacity();
}

Bytes Writer::finish()
{
    bytes_.commit(position() - bytes_.size());
    begin_ = cursor_ = end_ = nullptr;
    return std::move(bytes_);
}

void Writer::boolean(bool value)
{
    ensure(longestNumber);
    putUnchecked(value ? "true" : "false");
}

void Writer::integer(std::int64_t value)
{
    ensure(longestNumber);
    cursor_ = std::to_chars(cursor_, end_, value).ptr;
}

void Writer::number(double value)
{
    if (!std::isfinite(value)) {
        throw EncodingError("a duration that is infinite or not a number");
    }
    ensure(longestNumber);
    const auto whole = std::abs(value) < 1e5 ? static_cast<std::int64_t>(value) : 0;
    if (whole != 0 && static_cast<double>(whole) == value) {
        // Nearly every duration. Up to five digits are shorter than any form with an exponent.
        cursor_ = std::to_chars(cursor_, end_, whole).ptr;
        return;
    }
    // Beyond 64 bits an exponent is asked for: digits alone would look like an integer that readers
    // refuse as too large.
    const bool looksLikeInteger = std::abs(value) < 0x1p63;
    cursor_ = (looksLikeInteger ? std::to_chars(cursor_, end_, value)
                                : std::to_chars(cursor_, end_, value, std::chars_format::scientific))
                  .ptr;
}

void Writer::identifier(const Identifier& identifier)
{
    ensure(Identifier::textLength + 2);
    *cursor_++ = '"';
    identifier.writeText(cursor_);
    cursor_ += Identifier::textLength;
    *cursor_++ = '"';
}

void Writer::instant(Instant instant)
{
    const std::optional<DateText> text = dateText(instant);
    if (!text) {
        throw EncodingError("an instant that is not finite or lies outside the years 0000 to 9999");
    }
    ensure(dateTextLength + 2);
    *cursor_++ = '"';
    putUnchecked({text->data(), text->size()});
    *cursor_++ = '"';
}

void Writer::string(std::string_view text)
{
    // Room for the text as it is; what needs escapes asks for more as it comes.
    ensure(text.size() + step + 2);
    *cursor_++ = '"';
    while (true) {
        const std::size_t plain = copyPlainRun(text, cursor_);
        cursor_ += plain;
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        ensure(longestEscape + text.size() + step + 2);
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            cursor_ = putEscaped(cursor_, text.front());
            text.remove_prefix(1);
        } else {
            const Utf8Sequence sequence = frontSequence(text);
            putUnchecked(sequence.wellFormed ? text.substr(0, sequence.length) : replacementCharacter);
            text.remove_prefix(sequence.length);
        }
    }
    *cursor_++ = '"';
}

}  // namespace quillmere::json
