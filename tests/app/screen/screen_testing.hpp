// Keys and screens, for tests of the live screen.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/keys/key.hpp"

#include <string>

namespace quillmere::test {

using screen::Key;

/// Passes a text to `take` as keys, character by character; a line break is `enter`.
template <class Taker>
void type(Taker take, const std::string& ascii)
{
    for (const char character : ascii) {
        take(character == '\n' ? Key{Key::Kind::enter} : screen::typed(std::string(1, character)));
    }
}

/// Enough columns for a field without wrapping or cutting.
inline constexpr std::size_t roomy = 80;

/// The default window of most terminals, and the smallest usable window.
inline constexpr screen::Size usualWindow{.rows = 24, .columns = 80};
inline constexpr screen::Size smallWindow{.rows = 12, .columns = 40};

inline const Key upKey{Key::Kind::up};
inline const Key downKey{Key::Kind::down};
inline const Key homeKey{Key::Kind::home};
inline const Key endKey{Key::Kind::end};
inline const Key pageUp{Key::Kind::pageUp};
inline const Key pageDown{Key::Kind::pageDown};

}  // namespace quillmere::test
