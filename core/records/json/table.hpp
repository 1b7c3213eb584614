// One table for each record, with the key of each field and, where needed, a rule. Reading, writing and
// `forEachField` all use this table.
#pragma once

#include <quillmere/records/json/key_conversion.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillmere::json {

// Rules. -------------------------------------------------------------------------------------------

/// The usual rule: a field is required. An optional field is not written when it is absent, and may be
/// missing or null when it is read.
struct Usual {};

/// An optional field that is written as null when it is absent.
struct NullWhenAbsent {};

/// A required field whose key may be missing or null in a file: its value is then `make(record)`, with the
/// record as read so far.
template <auto make>
struct MadeWhenMissing {
    static constexpr auto value = make;
};

template <class Rule>
inline constexpr bool isMadeWhenMissing = false;
template <auto make>
inline constexpr bool isMadeWhenMissing<MadeWhenMissing<make>> = true;

// Rows. --------------------------------------------------------------------------------------------

template <class Member>
struct MemberTypes;
template <class Record_, class Value_>
struct MemberTypes<Value_ Record_::*> {
    using Record = Record_;
    using Value = Value_;
};

template <class Value>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

template <class Value>
inline constexpr bool isList = false;
template <class Element>
inline constexpr bool isList<std::vector<Element>> = true;

/// One row: the key in camelCase, the field, the rule.
template <FixedText key_, auto member_, class Rule_ = Usual>
struct Field {
    using Record = typename MemberTypes<decltype(member_)>::Record;
    using Value = typename MemberTypes<decltype(member_)>::Value;
    using Rule = Rule_;

    static constexpr auto key = key_;
    static constexpr auto member = member_;
    static constexpr auto& fileKey = snakeCase<key_>;
    static constexpr bool isOptional = json::isOptional<Value>;
    static constexpr bool mayBeMissing = isOptional || isMadeWhenMissing<Rule>;

    static_assert(survivesConversion<key_>, "this key would be written but never be read back");
    static_assert(isOptional || !std::is_same_v<Rule, NullWhenAbsent>, "only an optional can be absent");
    static_assert(!isOptional || !isMadeWhenMissing<Rule>, "an optional is absent when missing");
};

/// The table of a record, specialised for each record: `using Fields = std::tuple<Field<…>, …>`, with the
/// rows in field order.
template <class Record>
struct Table;

template <class Record>
concept HasTable = requires
{
    typename Table<Record>::Fields;
};

template <class Record>
using Fields = typename Table<Record>::Fields;

template <class Record, std::size_t index>
using FieldAt = std::tuple_element_t<index, Fields<Record>>;

// Order in files. ----------------------------------------------------------------------------------

/// The indexes of the rows, sorted by the bytes of the keys in the file.
template <HasTable Record>
constexpr auto sortedRows = [] {
    constexpr std::size_t count = std::tuple_size_v<Fields<Record>>;
    constexpr auto keys = []<std::size_t... indexes>(std::index_sequence<indexes...>)
    {
        return std::array{FieldAt<Record, indexes>::fileKey.view()...};
    }
    (std::make_index_sequence<count>{});
    std::array<std::size_t, count> order{};
    for (std::size_t index = 0; index < count; ++index) {
        order[index] = index;
    }
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}();

// Completeness. ------------------------------------------------------------------------------------

/// One more field of any type, for the check that a record has no further field. Two types, because a type
/// that converts to everything would convert to an optional in two ways.
struct AnyOptional {
    template <class Value>
    operator std::optional<Value>() const;
};
struct AnyOther {
    template <class Value>
    requires(!isOptional<Value>) operator Value() const;
};

template <class Row, class OtherRow>
inline constexpr bool nameOneField = false;
template <class Row, class OtherRow>
requires std::is_same_v<decltype(Row::member), decltype(OtherRow::member)>
inline constexpr bool nameOneField<Row, OtherRow> = Row::member == OtherRow::member;

template <class Row, class... Rows>
constexpr std::size_t timesNamed = (std::size_t{0} + ... + (nameOneField<Row, Rows> ? 1 : 0));

/// Whether the rows are exactly the fields of the record, in order: the record can be built from one value of
/// each row's type in the order of the rows, but not from one value more, and no row names a field twice.
template <class Record, class Rows>
inline constexpr bool rowsAreTheFields = false;
template <class Record, class... Rows>
inline constexpr bool rowsAreTheFields<Record, std::tuple<Rows...>> =
    ((timesNamed<Rows, Rows...> == 1) && ...) && requires
{
    Record{std::declval<typename Rows::Value>()...};
}
&&!requires { Record{std::declval<typename Rows::Value>()..., AnyOptional{}}; }
&&!requires { Record{std::declval<typename Rows::Value>()..., AnyOther{}}; };

}  // namespace quillmere::json
