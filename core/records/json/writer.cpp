#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/utf8.hpp>
#include <quillmere/records/json/writer.hpp>

#include <bit>
#include <charconv>
#include <cmath>

namespace quillmere::json {
namespace {

/// The longest text of an integer or of a double in its shortest form, with room to spare.
constexpr std::size_t longestNumber = 32;

/// The most bytes that one byte of a text can turn into: \u001f.
constexpr std::size_t longestEscape = 6;

/// Whether a character stands for itself in a JSON string: ASCII, printable, neither a quote nor a
/// backslash.
bool isPlain(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\';
}

// Several characters in one register. Signed lanes put what is beyond ASCII below the control
// characters, so that one comparison finds both.
typedef signed char WideLanes __attribute__((vector_size(16)));
typedef signed char NarrowLanes __attribute__((vector_size(8)));
typedef std::uint64_t WideWords __attribute__((vector_size(16)));

bool isZero(WideLanes lanes)
{
    const WideWords words = (WideWords)lanes;
    return (words[0] | words[1]) == 0;
}
bool isZero(NarrowLanes lanes) { return std::bit_cast<std::uint64_t>(lanes) == 0; }

/// Copies one register of characters and tells whether all of them stand for themselves.
template <class Lanes>
bool copyIfPlain(const char* source, char* destination)
{
    Lanes lanes;
    std::memcpy(&lanes, source, sizeof lanes);
    std::memcpy(destination, &lanes, sizeof lanes);
    return isZero((lanes < 0x20) | (lanes == '"') | (lanes == '\\'));
}

/// Copies the characters that stand for themselves at the front of `source` and returns how many. May
/// write up to `source.size()` bytes. The end of a run is copied as one last full step that overlaps
/// the one before.
std::size_t copyPlainRun(std::string_view source, char* destination)
{
    constexpr std::size_t wide = sizeof(WideLanes);
    constexpr std::size_t narrow = sizeof(NarrowLanes);
    const char* const text = source.data();
    std::size_t done = 0;
    while (source.size() - done >= wide && copyIfPlain<WideLanes>(text + done, destination + done)) {
        done += wide;
    }
    const std::size_t left = source.size() - done;
    if (left < wide && source.size() >= wide) {
        const std::size_t last = source.size() - wide;
        if (copyIfPlain<WideLanes>(text + last, destination + last)) {
            return source.size();
        }
    } else if (left < wide && source.size() >= narrow) {
        const std::size_t last = source.size() - narrow;
        if (copyIfPlain<NarrowLanes>(text, destination) &&
            copyIfPlain<NarrowLanes>(text + last, destination + last)) {
            return source.size();
        }
    }
    while (done < source.size() && isPlain(text[done])) {
        destination[done] = text[done];
        ++done;
    }
    return done;
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
    // Room for the text as it is and its quotes; what needs escapes asks for more as it comes.
    ensure(text.size() + 2);
    *cursor_++ = '"';
    while (true) {
        const std::size_t plain = copyPlainRun(text, cursor_);
        cursor_ += plain;
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        ensure(longestEscape + text.size() + 2);
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
