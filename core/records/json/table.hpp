// One table a record: field, key and, where it is not the usual one, a rule. Writing and reading are
// derived from it.
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

/// The usual rule: a field is required; an optional one is omitted when absent, and may be missing or
/// null when read.
struct Usual {};

/// An optional field that is written as null when absent.
struct NullWhenAbsent {};

/// A required field that is made from the record read so far when its key is missing or null. `make`
/// takes the record.
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

/// The table of a record, specialised once for each: `using Fields = std::tuple<Field<…>, …>`, with
/// the rows in field order.
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

// Order on disk. -----------------------------------------------------------------------------------

/// The places of a record's rows in ascending byte order of the keys in the file.
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

/// Stands for one more field of any type, in a check that is never evaluated. Two kinds, because a
/// type that converts to everything converts to an optional in two ways at once.
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

/// Whether the rows are the fields of the record, each once: it can be built from one value of each row's
/// type in the order of the rows, and there is no field left over.
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
