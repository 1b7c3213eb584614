// The clock face by which times of day are shown.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

#include <array>

namespace quillmere::base {

enum class Hours { twelve, twentyFour };

}  // namespace quillmere::base

template <>
struct quillmere::EnumerationTable<quillmere::base::Hours> {
    using Hours = base::Hours;
    static constexpr auto rows = std::to_array<RawText<Hours>>({
        {Hours::twelve, "12h"},
        {Hours::twentyFour, "24h"},
    });
};
