// The colours of the accents, for every surface.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/widget/design.hpp>

#include <array>
#include <string_view>

namespace quillmere::base {

/// No colour of its own: text as the terminal shows it.
inline constexpr short usualColour = -1;

struct AccentColours {
    QuillmereDesign::Accent value;
    short of16;              ///< number of a terminal's basic colour: 1 is red, 2 green (ECMA-48)
    short of256;             ///< number in the palette of 256, for a dark background
    std::string_view light;  ///< "#rrggbb" on a light background
    std::string_view dark;   ///< "#rrggbb" on a dark background
};

inline constexpr auto accentColours = std::to_array<AccentColours>({
    {QuillmereDesign::Accent::focus, 1, 173, "#a8432f", "#e0806a"},
    {QuillmereDesign::Accent::rest, 2, 72, "#2a7353", "#5fbf95"},
    {QuillmereDesign::Accent::plan, 4, 110, "#2d6390", "#78b2e3"},
    {QuillmereDesign::Accent::review, 5, 140, "#7b4a9e", "#bd97e3"},
    {QuillmereDesign::Accent::neutral, usualColour, usualColour, "#66625a", "#a8a297"},
});
static_assert(inCaseOrder(accentColours) &&
              accentColours.size() == EnumerationTable<QuillmereDesign::Accent>::rows.size());

constexpr const AccentColours& coloursOf(QuillmereDesign::Accent accent)
{
    return rowOf(accentColours, accent);
}

}  // namespace quillmere::base
