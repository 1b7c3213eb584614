// Keys and screens, for tests of the live screen.
#pragma once

#include "screen/canvas.hpp"
#include "screen/key.hpp"

#include <string>

namespace quillmere::test {

using screen::Key;

/// Gives a text to something that takes keys, character by character; a line break is `enter`.
template <class Taker>
void type(Taker take, const std::string& ascii)
{
    for (const char character : ascii) {
        take(character == '\n' ? Key{Key::Kind::enter} : screen::typed(std::string(1, character)));
    }
}

/// A window as most terminals have it, and the smallest one.
/// Columns in which what a field shows need not be broken or cut.
inline constexpr std::size_t roomy = 80;

inline constexpr screen::Size usualWindow{.rows = 24, .columns = 80};
inline constexpr screen::Size smallWindow{.rows = 12, .columns = 40};

inline const Key pageUp{Key::Kind::pageUp};
inline const Key pageDown{Key::Kind::pageDown};

}  // namespace quillmere::test
