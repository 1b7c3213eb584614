// The sizes of a widget and their layouts.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

#include <cstdint>

namespace quillmere {

enum class QuillmereWidgetLayout { compact, split, detailed };

template <>
struct EnumerationTable<QuillmereWidgetLayout> {
    static constexpr auto rows = std::to_array<RawText<QuillmereWidgetLayout>>({
        {QuillmereWidgetLayout::compact, "compact"},
        {QuillmereWidgetLayout::split, "split"},
        {QuillmereWidgetLayout::detailed, "detailed"},
    });
};

/// Whether the layout has room for the whole plan.
constexpr bool showsFullPlan(QuillmereWidgetLayout layout)
{
    return layout == QuillmereWidgetLayout::detailed;
}

enum class QuillmereWidgetFamily { small, medium, large, extraLarge };

template <>
struct EnumerationTable<QuillmereWidgetFamily> {
    struct Row {
        QuillmereWidgetFamily value;
        std::string_view text;
        std::int64_t relativeArea;
        QuillmereWidgetLayout layout;
        bool prefersTwoColumns;
    };
    static constexpr auto rows = std::to_array<Row>({
        {QuillmereWidgetFamily::small, "small", 1, QuillmereWidgetLayout::compact, false},
        {QuillmereWidgetFamily::medium, "medium", 2, QuillmereWidgetLayout::split, false},
        {QuillmereWidgetFamily::large, "large", 4, QuillmereWidgetLayout::detailed, false},
        {QuillmereWidgetFamily::extraLarge, "extraLarge", 8, QuillmereWidgetLayout::detailed, true},
    });
};

/// The area as a multiple of the smallest family's area.
constexpr std::int64_t relativeArea(QuillmereWidgetFamily family)
{
    return rowOf(EnumerationTable<QuillmereWidgetFamily>::rows, family).relativeArea;
}

constexpr QuillmereWidgetLayout layout(QuillmereWidgetFamily family)
{
    return rowOf(EnumerationTable<QuillmereWidgetFamily>::rows, family).layout;
}

constexpr bool prefersTwoColumns(QuillmereWidgetFamily family)
{
    return rowOf(EnumerationTable<QuillmereWidgetFamily>::rows, family).prefersTwoColumns;
}

/// The families that the widget supports, the smallest first.
template <std::same_as<QuillmereWidgetFamily> Enumeration>
inline constexpr auto supported = allCases<Enumeration>();

/// The largest family.
template <std::same_as<QuillmereWidgetFamily> Enumeration>
inline constexpr Enumeration largest = supported<Enumeration>.back();

}  // namespace quillmere
