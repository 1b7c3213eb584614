// The effect of a key on an editor.
#pragma once

namespace quillmere::screen {

enum class Effect {
    notForIt,   ///< the editor has no use for the key
    unchanged,  ///< the key was used and the value is the same
    changed,
};

}  // namespace quillmere::screen
