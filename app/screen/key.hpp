// What a person presses.
#pragma once

#include <string>
#include <utility>

namespace quillmere::screen {

struct Key {
    enum class Kind {
        character,  ///< `text` is what was typed
        paste,      ///< `text` is what was pasted: UTF-8, its lines parted by "\n"
        control,    ///< `text` is the letter that was held down with it, in lower case
        enter,
        tab,
        backTab,
        backspace,
        remove,  ///< what stands after the cursor
        left,
        right,
        up,
        down,
        home,
        end,
        pageUp,
        pageDown,
        escape,
    };

    Kind kind;
    std::string text = {};

    friend bool operator==(const Key&, const Key&) = default;
};

inline Key typed(std::string text) { return {Key::Kind::character, std::move(text)}; }
inline Key pasted(std::string text) { return {Key::Kind::paste, std::move(text)}; }
inline Key withControl(char letter) { return {Key::Kind::control, std::string(1, letter)}; }

}  // namespace quillmere::screen
