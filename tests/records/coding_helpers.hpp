// Converts records to JSON texts and back, and replaces single values in such texts.
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

/// The error that reading a text throws; absent when it is accepted.
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

/// The error that writing a value throws; absent when it is written.
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

/// Whether the error is that the text is not JSON at all.
inline bool isMalformed(const std::optional<DecodingError>& error)
{
    return error && error->expected() == "well-formed JSON";
}

/// The place of a scalar value in compact JSON. A text must have no comma and no brace.
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

/// The scalar value of a member of compact JSON, as it is spelled.
inline std::string scalarOf(std::string_view text, std::string_view key)
{
    const Span span = scalarSpan(text, key);
    return std::string(text.substr(span.start, span.length));
}

/// The same text with another value for this member.
inline std::string withScalar(std::string text, std::string_view key, std::string_view scalar)
{
    const Span span = scalarSpan(text, key);
    return text.replace(span.start, span.length, scalar);
}

}  // namespace quillmere::test
