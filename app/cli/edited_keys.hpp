// The keys of a line that is edited.
#pragma once

#include "screen/keys/key.hpp"

#include <string>

using EditLine = struct editline;

namespace quillmere::cli {

/// Binds the characters of `charactersOf` to what their keys do.
void bindKeys(EditLine* line);

/// The characters that libedit reads for a key: text as it is, and a control character for a key that does
/// something. Nothing for any other key, so that no sequence of a terminal becomes text. Needs a Utf8Locale.
std::wstring charactersOf(const screen::Key& key, bool takesLines);

/// Draws the line again.
inline constexpr wchar_t redraw = L'\x11';

}  // namespace quillmere::cli
