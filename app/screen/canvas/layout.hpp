// The size of a window in the layout families that all user interfaces share.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <quillmere/widget/widget_family.hpp>

#include <algorithm>

namespace quillmere::screen {

/// The smallest window with room for a page.
inline constexpr Size leastSize{.rows = 12, .columns = 40};
/// The smallest window with room for the phase, the time and a line.
inline constexpr Size leastSmallSize{.rows = 5, .columns = 20};

constexpr bool contains(Size window, Size least)
{
    return window.rows >= least.rows && window.columns >= least.columns;
}

constexpr bool isLargeEnough(Size window) { return contains(window, leastSize); }

struct FamilyRow {
    QuillmereWidgetFamily value;
    Size least;  ///< the smallest window of the family
};

inline constexpr auto familyRows = std::to_array<FamilyRow>({
    {QuillmereWidgetFamily::small, {.rows = 0, .columns = 0}},
    {QuillmereWidgetFamily::medium, {.rows = 18, .columns = 64}},
    {QuillmereWidgetFamily::large, {.rows = 24, .columns = 80}},
    {QuillmereWidgetFamily::extraLarge, {.rows = 24, .columns = 120}},
});
static_assert(inCaseOrder(familyRows) && familyRows.size() == supported<QuillmereWidgetFamily>.size());

/// The largest family that fits into a window.
constexpr QuillmereWidgetFamily familyFor(Size window)
{
    QuillmereWidgetFamily family = QuillmereWidgetFamily::small;
    for (const FamilyRow& row : familyRows) {
        if (window.rows >= row.least.rows && window.columns >= row.least.columns) {
            family = row.value;
        }
    }
    return family;
}

/// A cell of the terminal is 6 layout points wide and 12 high; spacings are rounded to whole cells.
constexpr std::size_t columnsOf(double points) { return static_cast<std::size_t>(points / 6 + 0.5); }
constexpr std::size_t rowsOf(double points) { return static_cast<std::size_t>(points / 12 + 0.5); }

/// The columns of the empty left and right border.
constexpr std::size_t marginFor(Size window)
{
    constexpr std::size_t leastForWideMargin = 80;
    using namespace QuillmereDesign;
    return columnsOf(window.columns >= leastForWideMargin ? Spacing::section : Spacing::regular);
}

}  // namespace quillmere::screen
