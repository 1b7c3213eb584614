// A key press.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <string>
#include <utility>

namespace quillmere::screen {

struct Key {
    enum class Kind {
        character,  ///< `text` is the typed character
        paste,      ///< `text` is the pasted text: UTF-8, with "\n" between lines
        control,    ///< `text` is the letter pressed with Control, in lower case
        enter,
        tab,
        backTab,
        backspace,
        remove,  ///< the Delete key
        left,
        right,
        up,
        down,
        home,
        end,
        wordLeft,  ///< with Control or Alt
        wordRight,
        pageUp,
        pageDown,
        escape,
        click,  ///< of the first mouse button, at `place`; the wheel is pageUp and pageDown
    };

    Kind kind;
    std::string text = {};
    Place place = {};

    friend bool operator==(const Key&, const Key&) = default;
};

/// Whether the key scrolls by a page.
inline bool isPageKey(const Key& key)
{
    return key.kind == Key::Kind::pageUp || key.kind == Key::Kind::pageDown;
}

inline Key typed(std::string text) { return {Key::Kind::character, std::move(text)}; }
inline Key pasted(std::string text) { return {Key::Kind::paste, std::move(text)}; }
inline Key withControl(char letter) { return {Key::Kind::control, std::string(1, letter)}; }

}  // namespace quillmere::screen
