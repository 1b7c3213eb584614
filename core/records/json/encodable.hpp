// Finds values without a JSON form before anything is written.
#pragma once

#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/table.hpp>

#include <cmath>
#include <cstddef>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillmere::json {

/// Whether a type has values without a JSON form. Values of other types need no check.
template <class Value>
constexpr bool mayBeUnencodable = std::is_same_v<Value, double> || std::is_same_v<Value, Instant>;
template <class Element>
constexpr bool mayBeUnencodable<std::optional<Element>> = mayBeUnencodable<Element>;
template <class Element>
constexpr bool mayBeUnencodable<std::vector<Element>> = mayBeUnencodable<Element>;
template <class... Row>
constexpr bool mayBeUnencodable<std::tuple<Row...>> = (mayBeUnencodable<typename Row::Value> || ...);
template <HasTable Record>
constexpr bool mayBeUnencodable<Record> = mayBeUnencodable<Fields<Record>>;

/// Throws EncodingError for the first value, in the order of the file, that has no JSON form.
template <class Value>
void requireEncodable(const Value& value);

template <class Element>
void requireEncodableElement(const std::vector<Element>& elements, std::size_t index)
{
    try {
        requireEncodable(elements[index]);
    } catch (CodingError& error) {
        error.prependIndex(index);
        throw;
    }
}

template <class Field>
void requireEncodableMember(const typename Field::Record& record)
{
    try {
        requireEncodable(record.*Field::member);
    } catch (CodingError& error) {
        error.prependKey(Field::fileKey.view());
        throw;
    }
}

template <class Value>
void requireEncodable(const Value& value)
{
    if constexpr (!mayBeUnencodable<Value>) {
        return;
    } else if constexpr (HasTable<Value>) {
        constexpr auto& order = sortedRows<Value>;
        [&]<std::size_t... places>(std::index_sequence<places...>)
        {
            (requireEncodableMember<FieldAt<Value, order[places]>>(value), ...);
        }
        (std::make_index_sequence<order.size()>{});
    } else if constexpr (isList<Value>) {
        for (std::size_t index = 0; index < value.size(); ++index) {
            requireEncodableElement(value, index);
        }
    } else if constexpr (isOptional<Value>) {
        if (value) {
            requireEncodable(*value);
        }
    } else if constexpr (std::is_same_v<Value, Instant>) {
        requireDateText(value);
    } else if (!std::isfinite(value)) {
        throw EncodingError("a duration that is infinite or not a number");
    }
}

}  // namespace quillmere::json
