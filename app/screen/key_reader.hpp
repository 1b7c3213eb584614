// Keys out of the bytes that a terminal sends.
#pragma once

#include "screen/canvas.hpp"
#include "screen/key.hpp"

#include <deque>
#include <optional>
#include <string>

namespace quillmere::screen {

/// Bytes may come in any pieces: what has begun is finished by what comes later. A byte that is no text
/// becomes U+FFFD, and what follows is kept. Sequences of control (ECMA-48, CSI and SS3) mean nothing here
/// and are left out whole, but for those around a paste.
class KeyReader {
public:
    /// With ASCII, other characters are left out.
    explicit KeyReader(Charset charset) : charset_(charset) {}

    void take(unsigned char byte);
    /// Takes a key that was recognised already; in a paste it is left out.
    void take(Key key);

    /// Nothing more has come at once: an escape that stands alone was pressed.
    void pause();

    /// The next key that is complete.
    std::optional<Key> key();

private:
    enum class Place { text, escape, sequence, paste };

    void takeText(unsigned char byte);
    void takeAfterEscape(unsigned char byte);
    void takeInSequence(unsigned char byte);
    void takeInPaste(unsigned char byte);
    void put(Key key) { keys_.push_back(std::move(key)); }
    void putCharacter(std::string character);
    /// A character that was begun will not be finished.
    void breakCharacterOff();

    Charset charset_;
    Place place_ = Place::text;
    std::string pending_;  ///< of the character, sequence or paste that has begun
    std::deque<Key> keys_;
};

}  // namespace quillmere::screen
