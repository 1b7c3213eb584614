// Records to JSON texts and back, and single values inside of such texts.
#pragma once

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::test {

template <class Value>
std::string compactText(const Value& value)
{
    return std::string(JsonEncoder(JsonLayout::compact).encode(value).view());
}

template <class Value>
std::string prettyText(const Value& value)
{
    return std::string(JsonEncoder(JsonLayout::pretty).encode(value).view());
}

template <class Value>
Value decoded(std::string_view text)
{
    return JsonDecoder().decode<Value>(Bytes(text));
}

/// What reading a text throws; absent when it is accepted.
template <class Value>
std::optional<DecodingError> decodingError(std::string_view text)
{
    try {
        decoded<Value>(text);
    } catch (const DecodingError& error) {
        return error;
    }
    return std::nullopt;
}

/// What writing a value throws; absent when it is written.
template <class Value>
std::optional<EncodingError> encodingError(const Value& value)
{
    try {
        compactText(value);
    } catch (const EncodingError& error) {
        return error;
    }
    return std::nullopt;
}

/// Whether an error says that the text is no JSON at all, as opposed to JSON of another kind.
inline bool isMalformed(const std::optional<DecodingError>& error)
{
    return error && error->expected() == "well-formed JSON";
}

/// Where the number, or the text without a comma or brace, of a member of compact JSON stands.
struct Span {
    std::size_t start;
    std::size_t length;
};
inline Span scalarSpan(std::string_view text, std::string_view key)
{
    const std::string member = '"' + std::string(key) + "\":";
    const std::size_t start = text.find(member) + member.size();
    return {start, text.find_first_of(",}", start) - start};
}

/// The number or simple text that a member of compact JSON holds, as it is spelled.
inline std::string scalarOf(std::string_view text, std::string_view key)
{
    const Span span = scalarSpan(text, key);
    return std::string(text.substr(span.start, span.length));
}

/// The same text with another value, spelled as given, for that member.
inline std::string withScalar(std::string text, std::string_view key, std::string_view scalar)
{
    const Span span = scalarSpan(text, key);
    return text.replace(span.start, span.length, scalar);
}

}  // namespace quillmere::test
