// The forms in which status bars take their lines, and what each of them would obey in a text.
#pragma once

#include "bar/bar_content.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <string>
#include <string_view>

namespace quillmere::bar {

enum class BarFormat { waybar, i3blocks, polybar, tmux, text, json };

/// How often a bar is given content: by one run each time, or by one run that stays.
enum class BarPace { once, following };

/// The content in the form of a bar, line ends included. One line each, but for i3blocks, which takes three
/// from a run that ends: the text, the short text and, where the phase has one, a colour.
std::string barText(BarFormat format, const BarContent& content, BarPace pace);

// These take sanitized text and return text that the bar shows as it was.

/// For Pango markup, a subset of XML, in text and in attributes.
std::string escapedForPango(std::string_view text);

/// For a status line of tmux, where a doubled "#" is one to be shown.
std::string escapedForTmux(std::string_view text);

/// For polybar, which knows no way to show a "%{": an invisible space (U+200B) stands between the two.
std::string escapedForPolybar(std::string_view text);

}  // namespace quillmere::bar

namespace quillmere {

template <>
struct EnumerationTable<bar::BarFormat> {
    static constexpr auto rows = std::to_array<RawText<bar::BarFormat>>({
        {bar::BarFormat::waybar, "waybar"},
        {bar::BarFormat::i3blocks, "i3blocks"},
        {bar::BarFormat::polybar, "polybar"},
        {bar::BarFormat::tmux, "tmux"},
        {bar::BarFormat::text, "text"},
        {bar::BarFormat::json, "json"},
    });
};

}  // namespace quillmere
