// The colours of every surface: accents, completions, and what they stand on.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/completion_result.hpp>
#include <quillmere/widget/design.hpp>

#include <array>
#include <string>
#include <string_view>

namespace quillmere::base {

/// No colour of its own: text as the terminal shows it.
inline constexpr short usualColour = -1;

enum class Background { dark, light };

/// A colour on a light and on a dark background, "#rrggbb".
struct Shades {
    std::string_view light;
    std::string_view dark;

    constexpr std::string_view on(Background background) const
    {
        return background == Background::light ? light : dark;
    }
};

struct Colour {
    short of16;  ///< number of a terminal's basic colour: 1 is red, 2 green (ECMA-48)
    Shades shades;
    short lightOf256;  ///< the nearest in the palette of 256
    short darkOf256;
};

template <class Enumeration>
struct ColourOf {
    Enumeration value;
    Colour colour;
};

// clang-format off
inline constexpr auto accentColours = std::to_array<ColourOf<QuillmereDesign::Accent>>({
    {QuillmereDesign::Accent::focus,   {1, {"#a8432f", "#e0806a"}, 124, 173}},
    {QuillmereDesign::Accent::rest,    {2, {"#2a7353", "#5fbf95"}, 23, 72}},
    {QuillmereDesign::Accent::plan,    {4, {"#2d6390", "#78b2e3"}, 24, 110}},
    {QuillmereDesign::Accent::review,  {5, {"#7b4a9e", "#bd97e3"}, 97, 140}},
    {QuillmereDesign::Accent::neutral, {usualColour, {"#66625a", "#a8a297"}, 241, 247}},
});

/// Stand beside a sign: they have too little contrast for text.
inline constexpr auto completionColours = std::to_array<ColourOf<CompletionResult>>({
    {CompletionResult::yes,  {2, {"#2f7a5a", "#5fbf95"}, 29, 72}},
    {CompletionResult::half, {3, {"#a87a1c", "#e3bd62"}, 136, 179}},
    {CompletionResult::no,   {usualColour, {"#8d8577", "#7b756a"}, 102, 243}},
});
// clang-format on
static_assert(inCaseOrder(accentColours) &&
              accentColours.size() == EnumerationTable<QuillmereDesign::Accent>::rows.size());
static_assert(inCaseOrder(completionColours) &&
              completionColours.size() == EnumerationTable<CompletionResult>::rows.size());

inline constexpr Shades paper = {"#faf9f6", "#171614"};
inline constexpr Shades card = {"#ffffff", "#1f1e1b"};
inline constexpr Shades ink = {"#23211d", "#ece8e0"};
/// Of lines that part; nothing depends on seeing them.
inline constexpr Colour edge = {usualColour, {"#e4e1d9", "#35322d"}, 254, 236};

constexpr const Colour& colourOf(QuillmereDesign::Accent accent)
{
    return rowOf(accentColours, accent).colour;
}
constexpr const Colour& colourOf(CompletionResult completion)
{
    return rowOf(completionColours, completion).colour;
}

/// The colours that a terminal has.
enum class ColourDepth { none, of16, of256, ofAll };

/// The parameters that choose a colour for text (Select Graphic Rendition, ECMA-48, and its extensions by
/// xterm): "31", "38;5;173", "38;2;224;128;106". Empty for none.
std::string foregroundParameters(const Colour& colour, ColourDepth depth, Background background);

}  // namespace quillmere::base
