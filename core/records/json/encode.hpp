// Writes records by their tables.
//
// For each field the compiler puts separator, line break, indentation, key and colon into one piece of text,
// and sorts the pieces. At run time only the values are written between them.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/json/encodable.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/json/table.hpp>
#include <quillmere/records/json/writer.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere::json {

/// A line break and the indentation at a nesting depth; empty in the compact layout.
template <JsonLayout layout, std::size_t depth>
constexpr auto lineBreak = [] {
    if constexpr (layout == JsonLayout::pretty) {
        return FixedText("\n") + spaces<2 * depth>();
    } else {
        return FixedText<0>();
    }
}();

/// The text between two members or elements.
template <JsonLayout layout, std::size_t depth>
constexpr auto separator = FixedText(",") + lineBreak<layout, depth>;

template <JsonLayout layout, std::size_t depth, class Field>
constexpr auto memberStart = [] {
    constexpr auto key = separator<layout, depth> + FixedText("\"") + Field::fileKey;
    if constexpr (layout == JsonLayout::pretty) {
        return key + FixedText("\" : ");
    } else {
        return key + FixedText("\":");
    }
}();

/// Values of one token. These and the following functions write at `cursor`, where there is room for one
/// token, and return the place after the written text.
inline char* writeScalar(Writer&, char* cursor, bool value) { return putBoolean(cursor, value); }
inline char* writeScalar(Writer&, char* cursor, std::int64_t value) { return putInteger(cursor, value); }
inline char* writeScalar(Writer&, char* cursor, double value) { return putNumber(cursor, value); }
inline char* writeScalar(Writer& writer, char* cursor, const std::string& value)
{
    return writer.putString(cursor, value);
}
inline char* writeScalar(Writer&, char* cursor, const Identifier& value)
{
    return putIdentifier(cursor, value);
}
inline char* writeScalar(Writer&, char* cursor, Instant value) { return putInstant(cursor, value); }
template <RawEnumeration Enumeration>
char* writeScalar(Writer& writer, char* cursor, Enumeration value)
{
    return writer.putString(cursor, rawValue(value));
}

/// Writes a text, with room for one token after it.
template <std::size_t length>
char* putPiece(Writer& writer, char* cursor, const FixedText<length>& piece)
{
    return putText(writer.ensure(cursor, length + longestToken), piece);
}

/// Writes a text that starts with a separator, with room for one token after it. For the first member or
/// element, the opening bracket replaces the comma.
template <char open, std::size_t length>
char* putSeparated(Writer& writer, char* cursor, const FixedText<length>& piece, bool& isFirst)
{
    char* const start = writer.ensure(cursor, length + longestToken);
    cursor = putText(start, piece);
    if (isFirst) {
        *start = open;
        isFirst = false;
    }
    return cursor;
}

/// Writes the closing bracket of a container; of an empty container both brackets, since `putSeparated` opens
/// a container only for its first element.
template <JsonLayout layout, std::size_t depth, FixedText brackets>
char* putEnd(Writer& writer, char* cursor, bool isEmpty)
{
    static constexpr auto end = lineBreak<layout, depth> + FixedText<1>({brackets.characters[1], '\0'});
    return isEmpty ? putPiece(writer, cursor, brackets) : putPiece(writer, cursor, end);
}

template <JsonLayout layout, std::size_t depth, HasTable Record>
char* writeRecord(Writer& writer, char* cursor, const Record& record);

template <JsonLayout layout, std::size_t depth, class Element>
char* writeList(Writer& writer, char* cursor, const std::vector<Element>& elements);

template <JsonLayout layout, std::size_t depth, class Value>
char* writeValue(Writer& writer, char* cursor, const Value& value)
{
    if constexpr (HasTable<Value>) {
        return writeRecord<layout, depth>(writer, cursor, value);
    } else if constexpr (isList<Value>) {
        return writeList<layout, depth>(writer, cursor, value);
    } else {
        return writeScalar(writer, cursor, value);
    }
}

template <JsonLayout layout, std::size_t depth, class Element>
char* writeList(Writer& writer, char* cursor, const std::vector<Element>& elements)
{
    bool isFirst = true;
    for (const Element& element : elements) {
        cursor = putSeparated<'['>(writer, cursor, separator<layout, depth + 1>, isFirst);
        cursor = writeValue<layout, depth + 1>(writer, cursor, element);
    }
    return putEnd<layout, depth, "[]">(writer, cursor, isFirst);
}

template <JsonLayout layout, std::size_t depth, class Field>
char* writeMember(Writer& writer, char* cursor, const typename Field::Record& record, bool& isFirst)
{
    constexpr auto& start = memberStart<layout, depth, Field>;
    const auto& value = record.*Field::member;
    if constexpr (!Field::isOptional) {
        cursor = putSeparated<'{'>(writer, cursor, start, isFirst);
        return writeValue<layout, depth>(writer, cursor, value);
    } else if (value) {
        cursor = putSeparated<'{'>(writer, cursor, start, isFirst);
        return writeValue<layout, depth>(writer, cursor, *value);
    } else if constexpr (std::is_same_v<typename Field::Rule, NullWhenAbsent>) {
        return putText(putSeparated<'{'>(writer, cursor, start, isFirst), FixedText("null"));
    } else {
        return cursor;
    }
}

template <JsonLayout layout, std::size_t depth, class Record, std::size_t... places>
char* writeMembers(Writer& writer, char* cursor, const Record& record, std::index_sequence<places...>)
{
    bool isFirst = true;
    ((cursor = writeMember<layout, depth + 1, FieldAt<Record, sortedRows<Record>[places]>>(writer, cursor,
                                                                                           record, isFirst)),
     ...);
    return putEnd<layout, depth, "{}">(writer, cursor, isFirst);
}

template <JsonLayout layout, std::size_t depth, HasTable Record>
char* writeRecord(Writer& writer, char* cursor, const Record& record)
{
    static_assert(rowsAreTheFields<Record, Fields<Record>>, "the table and the record differ");
    constexpr std::size_t count = std::tuple_size_v<Fields<Record>>;
    return writeMembers<layout, depth>(writer, cursor, record, std::make_index_sequence<count>{});
}

// Size. ----------------------------------------------------------------------------------------------

/// An estimate of the bytes that a value takes, so that the buffer seldom has to grow.
template <class Value>
std::size_t expectedSize(const Value& value)
{
    if constexpr (HasTable<Value>) {
        return [&]<std::size_t... indexes>(std::index_sequence<indexes...>)
        {
            return ((memberStart<JsonLayout::pretty, 4, FieldAt<Value, indexes>>.view().size() +
                     expectedSize(value.*FieldAt<Value, indexes>::member)) +
                    ...);
        }
        (std::make_index_sequence<std::tuple_size_v<Fields<Value>>>{});
    } else if constexpr (isList<Value>) {
        std::size_t size = 16;
        for (const auto& element : value) {
            size += 16 + expectedSize(element);
        }
        return size;
    } else if constexpr (isOptional<Value>) {
        return value ? expectedSize(*value) : 4;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return value.size() + value.size() / 32 + 2;
    } else {
        return Identifier::textLength + 2;
    }
}

/// Writes a value that `requireEncodable` has accepted.
template <class Value>
Bytes encodeWith(JsonLayout layout, Writer writer, const Value& value)
{
    char* const start = writer.ensure(writer.start(), longestToken);
    switch (layout) {
        case JsonLayout::pretty:
            return writer.finish(writeValue<JsonLayout::pretty, 0>(writer, start, value));
        case JsonLayout::compact:
            return writer.finish(writeValue<JsonLayout::compact, 0>(writer, start, value));
    }
    fatalError("quillmere: an encoder has no layout");
}

}  // namespace quillmere::json

namespace quillmere {

template <class Value>
Bytes JsonEncoder::encode(const Value& value) const
{
    json::requireEncodable(value);
    return json::encodeWith(layout_, json::Writer(json::expectedSize(value)), value);
}

template <class Value>
ByteSource JsonEncoder::source(const Value& value) const
{
    json::requireEncodable(value);
    return [layout = layout_, &value](const ByteSink& sink) {
        json::encodeWith(layout, json::Writer(sink), value);
    };
}

}  // namespace quillmere
