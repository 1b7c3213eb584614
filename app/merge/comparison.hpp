// Comparisons of what two copies say. The greater one is kept.
#pragma once

#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <algorithm>
#include <compare>
#include <initializer_list>
#include <optional>

namespace quillmere::merge {

constexpr bool isDecided(std::strong_ordering order) { return order != std::strong_ordering::equal; }

/// The first of several comparisons that is not equal; equal when none is.
constexpr std::strong_ordering firstDecided(std::initializer_list<std::strong_ordering> orders)
{
    const auto* const decided = std::find_if(orders.begin(), orders.end(), isDecided);
    return decided != orders.end() ? *decided : std::strong_ordering::equal;
}

/// A number, which is never NaN in a file.
constexpr std::strong_ordering compare(double one, double other)
{
    return one < other   ? std::strong_ordering::less
           : other < one ? std::strong_ordering::greater
                         : std::strong_ordering::equal;
}

constexpr std::strong_ordering compare(Instant one, Instant other)
{
    return compare(one.secondsSince1970(), other.secondsSince1970());
}

/// An absent instant is before every other.
constexpr std::strong_ordering compare(const std::optional<Instant>& one, const std::optional<Instant>& other)
{
    return one && other ? compare(*one, *other) : one.has_value() <=> other.has_value();
}

/// The last resort, so that all machines choose alike: compares what a file has for the two records.
template <class Record>
std::strong_ordering compareBytes(const Record& one, const Record& other)
{
    if (one == other) {
        return std::strong_ordering::equal;
    }
    const JsonEncoder encoder(JsonLayout::compact);
    return encoder.encode(one).view() <=> encoder.encode(other).view();
}

}  // namespace quillmere::merge
