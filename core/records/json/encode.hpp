// Writes records by their tables.
//
// All that is known before the program runs is one piece of text a field: separator, line break,
// indentation, key and colon. The values go between the pieces; members are sorted at compile time.
#pragma once

#include <quillmere/records/enumeration.hpp>
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/json/table.hpp>
#include <quillmere/records/json/writer.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere::json {

/// A line break and the indentation at a nesting depth, where the layout has any.
template <JsonLayout layout, std::size_t depth>
constexpr auto lineBreak = [] {
    if constexpr (layout == JsonLayout::pretty) {
        return FixedText("\n") + spaces<2 * depth>();
    } else {
        return FixedText<0>();
    }
}();

/// What stands between two members or elements.
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

/// Values that are one token whatever surrounds them.
inline void writeScalar(Writer& writer, bool value) { writer.boolean(value); }
inline void writeScalar(Writer& writer, std::int64_t value) { writer.integer(value); }
inline void writeScalar(Writer& writer, double value) { writer.number(value); }
inline void writeScalar(Writer& writer, const std::string& value) { writer.string(value); }
inline void writeScalar(Writer& writer, const Identifier& value) { writer.identifier(value); }
inline void writeScalar(Writer& writer, Instant value) { writer.instant(value); }
template <RawEnumeration Enumeration>
void writeScalar(Writer& writer, Enumeration value)
{
    writer.string(rawValue(value));
}

template <class Value>
constexpr bool isList = false;
template <class Element>
constexpr bool isList<std::vector<Element>> = true;

template <JsonLayout layout, std::size_t depth, HasTable Record>
void writeRecord(Writer& writer, const Record& record);

template <JsonLayout layout, std::size_t depth, class Element>
void writeList(Writer& writer, const std::vector<Element>& elements);

template <JsonLayout layout, std::size_t depth, class Value>
void writeValue(Writer& writer, const Value& value)
{
    if constexpr (HasTable<Value>) {
        writeRecord<layout, depth>(writer, value);
    } else if constexpr (isList<Value>) {
        writeList<layout, depth>(writer, value);
    } else {
        writeScalar(writer, value);
    }
}

/// Closes a container whose members or elements, if it has any, each began with a separator: the
/// first one's comma gives way to the opening bracket.
template <JsonLayout layout, std::size_t depth>
void encloseFrom(Writer& writer, std::size_t start, const char (&brackets)[3])
{
    if (writer.position() == start) {
        writer.put(FixedText(brackets));
        return;
    }
    writer.replaceAt(start, brackets[0]);
    writer.put(lineBreak<layout, depth>);
    writer.put(FixedText<1>({brackets[1], '\0'}));
}

template <JsonLayout layout, std::size_t depth, class Element>
void writeList(Writer& writer, const std::vector<Element>& elements)
{
    const std::size_t start = writer.position();
    for (std::size_t index = 0; index < elements.size(); ++index) {
        writer.put(separator<layout, depth + 1>);
        try {
            writeValue<layout, depth + 1>(writer, elements[index]);
        } catch (CodingError& error) {
            error.prependIndex(index);
            throw;
        }
    }
    encloseFrom<layout, depth>(writer, start, "[]");
}

template <JsonLayout layout, std::size_t depth, class Field>
void writeMember(Writer& writer, const typename Field::Record& record)
{
    constexpr auto& start = memberStart<layout, depth, Field>;
    const auto& value = record.*Field::member;
    try {
        if constexpr (!Field::isOptional) {
            writer.put(start);
            writeValue<layout, depth>(writer, value);
        } else if (value) {
            writer.put(start);
            writeValue<layout, depth>(writer, *value);
        } else if constexpr (std::is_same_v<typename Field::Rule, NullWhenAbsent>) {
            writer.put(start);
            writer.put(FixedText("null"));
        }
    } catch (CodingError& error) {
        error.prependKey(Field::fileKey.view());
        throw;
    }
}

template <JsonLayout layout, std::size_t depth, HasTable Record>
void writeRecord(Writer& writer, const Record& record)
{
    static_assert(rowsAreTheFields<Record, Fields<Record>>, "the table and the record differ");
    const std::size_t start = writer.position();
    [&]<std::size_t... places>(std::index_sequence<places...>) {
        (writeMember<layout, depth + 1, FieldAt<Record, sortedRows<Record>[places]>>(writer, record), ...);
    }(std::make_index_sequence<std::tuple_size_v<Fields<Record>>>{});
    encloseFrom<layout, depth>(writer, start, "{}");
}

// Size. ----------------------------------------------------------------------------------------------

/// About how many bytes a value takes: the text pieces as they are, and room for some escapes.
/// Only saves the buffer from growing on the way, so it need not be exact.
template <class Value>
std::size_t expectedSize(const Value& value)
{
    if constexpr (HasTable<Value>) {
        return [&]<std::size_t... indexes>(std::index_sequence<indexes...>) {
            return ((memberStart<JsonLayout::pretty, 4, FieldAt<Value, indexes>>.view().size() +
                     expectedSize(value.*FieldAt<Value, indexes>::member)) +
                    ...);
        }(std::make_index_sequence<std::tuple_size_v<Fields<Value>>>{});
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

template <JsonLayout layout, class Value>
Bytes encode(const Value& value)
{
    Writer writer(expectedSize(value));
    writeValue<layout, 0>(writer, value);
    return writer.finish();
}

}  // namespace quillmere::json

namespace quillmere {

template <class Value>
Bytes JsonEncoder::encode(const Value& value) const
{
    switch (layout_) {
        case JsonLayout::pretty: return json::encode<JsonLayout::pretty>(value);
        case JsonLayout::compact: return json::encode<JsonLayout::compact>(value);
    }
    fatalError("quillmere: an encoder has no layout");
}

}  // namespace quillmere
