// The line formats of the status bars, and their escaping.
#pragma once

#include "bar/bar_content.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <string>
#include <string_view>

namespace quillmere::bar {

enum class BarFormat { waybar, i3blocks, polybar, tmux, text, json };

/// Whether a run prints once and ends, or stays and prints at each change.
enum class BarPace { once, following };

/// The content in the format of a bar, with line ends. One line; for i3blocks, a run that ends prints up to
/// three: the text, the short text and, unless the accent is neutral or the time over, a colour.
std::string barText(BarFormat format, const BarContent& content, BarPace pace);

// These take sanitized text and return text that the bar shows as it was.

/// For Pango markup, a subset of XML, in text and in attributes.
std::string escapedForPango(std::string_view text);

/// For the status line of tmux, which shows "##" as "#".
std::string escapedForTmux(std::string_view text);

/// For polybar, which cannot show "%{": an invisible space (U+200B) stands between the two characters.
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
