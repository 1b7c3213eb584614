// Rules for reading any bytes as a record.
#pragma once

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/fuzz_target.hpp"
#include "proofs/values/utf8_check.hpp"

namespace quillmere::test {

/// Whether a path has the form of an error path: keys of small letters joined by points, and indices.
inline bool looksLikePath(std::string_view path)
{
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto mayStand = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || std::string_view("_.[]").find(c) != path.npos;
    };
    return !path.empty() && isLetter(path.front()) && std::all_of(path.begin(), path.end(), mayStand);
}

/// A decoding error names the place, unless it concerns the whole document, and its message is valid text.
inline void requireTold(const DecodingError& error)
{
    const std::string& path = error.path();
    const bool isAboutAll = error.expected() == "well-formed JSON" || error.expected() == "an object";
    require(path.empty() ? isAboutAll : looksLikePath(path), "a decoding error says where");
    const std::string explanation = "expected " + error.expected() + ", found " + error.found();
    require(error.what() == (path.empty() ? explanation : path + ": " + explanation),
            "a decoding error says what was expected and what was found");
    require(isUtf8(error.what()), "the message of a decoding error is a text");
}

/// A record that was read is written and read again without loss, and to the same bytes: a file can hold only
/// whole seconds, finite numbers and well-formed texts.
template <class Record>
void requireRoundTrip(const Record& record, JsonLayout layout)
{
    const Bytes written = JsonEncoder(layout).encode(record);
    require(isUtf8(written.view()), "what is written is a text");
    const Record again = JsonDecoder().decode<Record>(written);
    require(again == record, "what is written reads back equal");
    require(JsonEncoder(layout).encode(again).view() == written.view(), "and is written in the same bytes");
}

/// Any exception other than DecodingError ends the target: a record that was read can also be written.
template <class Record>
void readAndWriteBack(const std::uint8_t* data, std::size_t size)
{
    std::optional<Record> record;
    try {
        record = JsonDecoder().decode<Record>(Bytes(textOf(data, size)));
    } catch (const DecodingError& error) {
        requireTold(error);
        return;
    }
    requireRoundTrip(*record, JsonLayout::pretty);
    requireRoundTrip(*record, JsonLayout::compact);
}

}  // namespace quillmere::test
