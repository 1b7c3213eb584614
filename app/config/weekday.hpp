// The days of the week by name.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

#include <array>

namespace quillmere::config {

/// In the order of ISO 8601.
enum class Weekday { monday, tuesday, wednesday, thursday, friday, saturday, sunday };

}  // namespace quillmere::config

template <>
struct quillmere::EnumerationTable<quillmere::config::Weekday> {
    using Weekday = config::Weekday;
    static constexpr auto rows = std::to_array<RawText<Weekday>>({
        {Weekday::monday, "monday"},
        {Weekday::tuesday, "tuesday"},
        {Weekday::wednesday, "wednesday"},
        {Weekday::thursday, "thursday"},
        {Weekday::friday, "friday"},
        {Weekday::saturday, "saturday"},
        {Weekday::sunday, "sunday"},
    });
};
