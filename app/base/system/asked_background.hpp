// Asking the terminal whether it is light or dark.
#pragma once

#include "base/text/colours.hpp"

#include <optional>

namespace quillmere::base {

/// By the terminal's answer to a question about its background (terminal_background.hpp), together with one
/// that nearly every terminal answers (Primary Device Attributes, ECMA-48), so that little time is lost where
/// the first is not known: a second at the most. Both descriptors are terminals. Absent without an answer;
/// where something was typed ahead, which must not be lost; and in a background process, which the terminal
/// would stop.
std::optional<Background> askedBackground(int input, int output);

}  // namespace quillmere::base
