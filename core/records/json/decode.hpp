// Reads records by their tables.
//
// An object is read in one pass, each value directly into its field. An error in one field does not end the
// pass: the rest must be well-formed too, and a later key with the same name may still replace the value.
// After the pass the first bad field in table order is reported.
#pragma once

#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/reader.hpp>
#include <quillmere/records/json/scalar.hpp>
#include <quillmere/records/json/table.hpp>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::json {

// Values of every kind. ------------------------------------------------------------------------------

/// The value of a field before it is read.
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
        return Identifier(Identifier::Octets{});
    } else if constexpr (std::is_same_v<Value, Instant>) {
        return Instant(0);
    } else {
        return Value{};
    }
}

/// Converts to a blank value, so that emplace constructs it in place instead of moving it.
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
    std::optional<Mismatch> firstError;
    for (auto result : node.list()) {
        Node element(checked(std::move(result)));
        if (list.empty()) {
            // Most lists have at most eight elements, as a block has eight sessions by default.
            list.reserve(8);
        }
        list.emplace_back(Blank<Element>());
        try {
            readInto(element, list.back(), depth + 1);
        } catch (Mismatch& error) {
            error.prependIndex(list.size() - 1);
            firstError = firstError ? std::move(firstError) : std::move(error);
        }
    }
    if (firstError) {
        throw *std::move(firstError);
    }
}

// Records. -------------------------------------------------------------------------------------------

/// Reads one field. Returns whether it has a value: false for a null that counts as missing.
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

/// Sets a field whose key is missing by its rule; throws when the field is required. `place` points to the
/// object.
template <class Field>
void supplyMissing(typename Field::Record& record, [[maybe_unused]] const char* place)
{
    if constexpr (isMadeWhenMissing<typename Field::Rule>) {
        record.*Field::member = Field::Rule::value(record);
    } else if constexpr (Field::isOptional) {
        // The key of the object may occur twice, and the first object may have set this field.
        (record.*Field::member).reset();
    } else {
        Mismatch error(expected(noValue<typename Field::Value>), "nothing", place);
        error.prependKey(Field::fileKey.view());
        throw error;
    }
}

template <HasTable Record>
struct RecordRows {
    using ReadRow = bool (*)(Node<ondemand::value>&, Record&, std::size_t);
    using SupplyRow = void (*)(Record&, const char*);

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

/// Finds the row of each key of one object. The keys of a file are sorted, so the search begins with the row
/// after the last one found, in sorted order.
template <HasTable Record>
class RowFinder {
public:
    static constexpr std::size_t none = RecordRows<Record>::count;

    std::size_t find(ondemand::field& field)
    {
        const char* const raw = field.key().raw();
        for (std::size_t tried = 0; tried < none; ++tried) {
            const std::size_t place = next_;
            next_ = place + 1 == none ? 0 : place + 1;
            if (isKey(raw, sortedKeys[place])) {
                return sortedRows<Record>[place];
            }
        }
        return findConverted(unescapedKey(field));
    }

private:
    static constexpr auto sortedKeys = [] {
        std::array<std::string_view, none> keys;
        for (std::size_t place = 0; place < none; ++place) {
            keys[place] = RecordRows<Record>::rows[sortedRows<Record>[place]].fileKey;
        }
        return keys;
    }();

    static constexpr std::size_t longestKey()
    {
        std::size_t longest = 0;
        for (const std::string_view key : sortedKeys) {
            longest = std::max(longest, key.size());
        }
        return longest;
    }

    /// Whether a key of the file, up to its closing quote, is exactly this key.
    static bool isKey(const char* raw, std::string_view key)
    {
        static_assert(longestKey() < Bytes::slack, "a comparison must not leave the text");
        return raw[key.size()] == '"' && std::memcmp(raw, key.data(), key.size()) == 0;
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
    std::bitset<rows.size()> present;
    std::map<std::size_t, Mismatch> errors;
    RowFinder<Record> finder;
    for (auto result : node.object()) {
        ondemand::field field = checked(std::move(result));
        const std::size_t row = finder.find(field);
        Node value(field.value());
        if (row == finder.none) {
            walk(value, depth + 1);
            continue;
        }
        try {
            present.set(row, rows[row].read(value, record, depth + 1));
            if (!errors.empty()) {
                errors.erase(row);
            }
        } catch (Mismatch& error) {
            error.prependKey(rows[row].fileKey);
            errors.insert_or_assign(row, std::move(error));
        }
    }
    if (errors.empty() && present.all()) {
        return;
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (const auto found = errors.find(row); found != errors.end()) {
            throw std::move(found->second);
        }
        if (!present[row]) {
            rows[row].supply(record, node.token().data());
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
