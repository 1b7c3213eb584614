// Reads records by their tables.
//
// Each object is taken in one pass, its fields straight into their places. An error of one field does
// not end the pass: the rest must be well-formed as well, and a later key of the same name may still
// replace the value. At the end the first bad field in table order decides.
#pragma once

#include <quillmere/records/enumeration.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/json/reader.hpp>
#include <quillmere/records/json/table.hpp>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::json {

// Scalars: what a type expects, and how it is read from a token. `assign` says whether it could. ------

template <class Value>
struct Scalar;

template <>
struct Scalar<bool> {
    static std::string expected() { return "true or false"; }
    template <class Json>
    static bool assign(Node<Json>& node, bool& value)
    {
        value = node.token() == "true";
        return value || node.token() == "false";
    }
};

/// Assigns what was found, if anything was.
template <class Value, class Found>
bool assignFound(Value& value, Found&& found)
{
    if (found) {
        value = *std::forward<Found>(found);
    }
    return found.has_value();
}

template <>
struct Scalar<std::int64_t> {
    static std::string expected() { return "a whole number of 64 bits"; }
    template <class Json>
    static bool assign(Node<Json>& node, std::int64_t& value)
    {
        return isNumberText(node.token()) && assignFound(value, integerFromNumberText(node.token()));
    }
};

template <>
struct Scalar<double> {
    static std::string expected() { return "a number within double precision"; }
    template <class Json>
    static bool assign(Node<Json>& node, double& value)
    {
        return isNumberText(node.token()) && assignFound(value, doubleFromNumberText(node.token()));
    }
};

template <>
struct Scalar<std::string> {
    static std::string expected() { return "a text"; }
    template <class Json>
    static bool assign(Node<Json>& node, std::string& value)
    {
        if (!node.isString()) {
            return false;
        }
        std::string unescaping;
        const std::string_view text = node.string(unescaping);
        value = text.data() == unescaping.data() ? std::move(unescaping) : std::string(text);
        return true;
    }
};

template <>
struct Scalar<Identifier> {
    static std::string expected() { return "an identifier such as 9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10"; }
    template <class Json>
    static bool assign(Node<Json>& node, Identifier& value)
    {
        std::string unescaping;
        return node.isString() && assignFound(value, Identifier::fromText(node.string(unescaping)));
    }
};

template <>
struct Scalar<Instant> {
    static std::string expected() { return "an instant such as 2026-01-31T09:15:00Z"; }
    template <class Json>
    static bool assign(Node<Json>& node, Instant& value)
    {
        std::string unescaping;
        return node.isString() && assignFound(value, instantFromDateText(node.string(unescaping)));
    }
};

template <RawEnumeration Enumeration>
struct Scalar<Enumeration> {
    static std::string expected()
    {
        std::string names;
        for (const auto& row : EnumerationTable<Enumeration>::rows) {
            names += names.empty() ? "one of \"" : ", \"";
            names += row.text;
            names += '"';
        }
        return names;
    }
    template <class Json>
    static bool assign(Node<Json>& node, Enumeration& value)
    {
        std::string unescaping;
        return node.isString() && assignFound(value, fromRawValue<Enumeration>(node.string(unescaping)));
    }
};

// Values of every kind. ------------------------------------------------------------------------------

/// The value that a place holds before it is read.
template <class Value>
Value blank()
{
    if constexpr (HasTable<Value>) {
        return []<std::size_t... indexes>(std::index_sequence<indexes...>)
        {
            return Value{blank<typename FieldAt<Value, indexes>::Value>()...};
        }
        (std::make_index_sequence<std::tuple_size_v<Fields<Value>>>{});
    } else if constexpr (std::is_same_v<Value, Identifier>) {
        return Identifier(Identifier::Bytes{});
    } else if constexpr (std::is_same_v<Value, Instant>) {
        return Instant(0);
    } else {
        return Value{};
    }
}

/// Turns into a blank value in the place where one is made, rather than being moved there.
template <class Value>
struct Blank {
    operator Value() const { return blank<Value>(); }
};

template <class Value>
constexpr const Value* noValue = nullptr;
template <HasTable Record>
std::string expected(const Record*)
{
    return "an object";
}
template <class Element>
std::string expected(const std::vector<Element>*)
{
    return "a list";
}
template <class Value>
std::string expected(const Value*)
{
    return Scalar<Value>::expected();
}

template <class Json, HasTable Record>
void readInto(Node<Json>& node, Record& record, std::size_t depth);

template <class Json, class Value>
void readInto(Node<Json>& node, Value& value, std::size_t depth)
{
    if (!Scalar<Value>::assign(node, value)) {
        mismatch(node, expected(noValue<Value>), depth);
    }
}

template <class Json, class Element>
void readInto(Node<Json>& node, std::vector<Element>& list, std::size_t depth)
{
    if (node.kind() != NodeKind::list) {
        mismatch(node, expected(noValue<std::vector<Element>>), depth);
    }
    list.clear();
    std::optional<DecodingError> firstError;
    for (auto result : node.list()) {
        Node element(checked(std::move(result)));
        if (list.empty()) {
            // A block is planned with eight sessions by default, so most lists never grow.
            list.reserve(8);
        }
        list.emplace_back(Blank<Element>());
        try {
            readInto(element, list.back(), depth + 1);
        } catch (DecodingError& error) {
            error.prependIndex(list.size() - 1);
            firstError = firstError ? std::move(firstError) : std::move(error);
        }
    }
    if (firstError) {
        throw *std::move(firstError);
    }
}

// Records. -------------------------------------------------------------------------------------------

/// Reads one field; whether it is there is the result: false for a null that counts as missing.
template <class Field>
bool readField(Node<ondemand::value>& value, typename Field::Record& record, std::size_t depth)
{
    auto& place = record.*Field::member;
    if constexpr (Field::mayBeMissing) {
        if (value.isNull()) {
            if constexpr (Field::isOptional) {
                place.reset();
            }
            return false;
        }
    }
    if constexpr (Field::isOptional) {
        readInto(value, place.emplace(Blank<typename Field::Value::value_type>()), depth);
    } else {
        readInto(value, place, depth);
    }
    return true;
}

/// Gives a field whose key is not there what its rule says, or throws.
template <class Field>
void supplyMissing(typename Field::Record& record)
{
    if constexpr (isMadeWhenMissing<typename Field::Rule>) {
        record.*Field::member = Field::Rule::value(record);
    } else if constexpr (Field::isOptional) {
        // An earlier object under the same key may have left a value.
        (record.*Field::member).reset();
    } else {
        DecodingError error(expected(noValue<typename Field::Value>), "nothing");
        error.prependKey(Field::fileKey.view());
        throw error;
    }
}

template <HasTable Record>
struct RecordRows {
    using ReadRow = bool (*)(Node<ondemand::value>&, Record&, std::size_t);
    using SupplyRow = void (*)(Record&);

    struct Row {
        std::string_view key;
        std::string_view fileKey;
        ReadRow read;
        SupplyRow supply;
    };

    static constexpr std::size_t count = std::tuple_size_v<Fields<Record>>;

    /// In table order.
    static constexpr auto rows = []<class... Field>(std::tuple<Field...>*) {
        return std::array{
            Row{Field::key.view(), Field::fileKey.view(), &readField<Field>, &supplyMissing<Field>}...};
    }(static_cast<Fields<Record>*>(nullptr));
};

/// Finds the rows of the keys of one object as they come. Files hold their keys sorted, so the next
/// key is nearly always the next row's in that order.
template <HasTable Record>
class RowFinder {
public:
    static constexpr std::size_t none = RecordRows<Record>::count;

    std::size_t find(ondemand::field& field)
    {
        const char* const raw = field.key().raw();
        for (std::size_t tried = 0; tried < none; ++tried) {
            const std::size_t place = next_ + tried < none ? next_ + tried : next_ + tried - none;
            const std::size_t row = sortedRows<Record>[place];
            const std::string_view fileKey = RecordRows<Record>::rows[row].fileKey;
            static_assert(longestKey() < Bytes::slack, "a comparison must not leave the text");
            if (std::memcmp(raw, fileKey.data(), fileKey.size()) == 0 && raw[fileKey.size()] == '"') {
                next_ = place + 1 == none ? 0 : place + 1;
                return row;
            }
        }
        return findConverted(unescapedKey(field));
    }

private:
    static constexpr std::size_t longestKey()
    {
        std::size_t longest = 0;
        for (const auto& row : RecordRows<Record>::rows) {
            longest = std::max(longest, row.fileKey.size());
        }
        return longest;
    }

    static std::size_t findConverted(std::string_view fileKey)
    {
        const std::string key = camelCase(fileKey);
        std::size_t row = 0;
        while (row < none && RecordRows<Record>::rows[row].key != key) {
            ++row;
        }
        return row;
    }

    std::size_t next_ = 0;
};

template <class Json, HasTable Record>
void readInto(Node<Json>& node, Record& record, std::size_t depth)
{
    if (node.kind() != NodeKind::object) {
        mismatch(node, expected(noValue<Record>), depth);
    }
    constexpr auto& rows = RecordRows<Record>::rows;
    std::array<bool, rows.size()> present{};
    std::array<std::unique_ptr<DecodingError>, rows.size()> errors;
    RowFinder<Record> finder;
    for (auto result : node.object()) {
        ondemand::field field = checked(std::move(result));
        const std::size_t row = finder.find(field);
        Node value(field.value());
        if (row == finder.none) {
            walk(value, depth + 1);
            continue;
        }
        errors[row].reset();
        try {
            present[row] = rows[row].read(value, record, depth + 1);
        } catch (DecodingError& error) {
            error.prependKey(rows[row].fileKey);
            errors[row] = std::make_unique<DecodingError>(std::move(error));
        }
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (errors[row]) {
            throw *std::move(errors[row]);
        }
        if (!present[row]) {
            rows[row].supply(record);
        }
    }
}

template <class Value>
Value decode(const Bytes& text)
{
    Value value = blank<Value>();
    readDocument(text, [&](Node<ondemand::document>& document) { readInto(document, value, 1); });
    return value;
}

}  // namespace quillmere::json

namespace quillmere {

template <class Value>
Value JsonDecoder::decode(const Bytes& text) const
{
    return json::decode<Value>(text);
}

}  // namespace quillmere
