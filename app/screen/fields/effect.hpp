// What keys do to what is being filled in.
#pragma once

namespace quillmere::screen {

/// What came of a key that was given to a field.
enum class Effect {
    notForIt,
    unchanged,  ///< it was for the field, and what has been filled in is the same
    changed,
};

}  // namespace quillmere::screen
