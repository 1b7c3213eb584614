// Whether the terminal is light or dark.
#pragma once

#include "base/text/colours.hpp"

#include <optional>
#include <string_view>

namespace quillmere::base {

/// Asks for the background's colour (OSC 11 of xterm). The answer is of the same form:
/// "11;rgb:ffff/ffff/ffff" between OSC and ST or BEL. Terminals that do not know the question ignore it.
inline constexpr std::string_view askForBackground = "\x1b]11;?\x1b\\";

/// By the answer, from behind OSC to before its end. Absent when it names no colour.
std::optional<Background> backgroundFrom(std::string_view answer);

}  // namespace quillmere::base
