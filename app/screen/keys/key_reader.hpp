// Decodes the bytes that a terminal sends into keys.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/keys/key.hpp"

#include <deque>
#include <optional>
#include <string>

namespace quillmere::screen {

/// Bytes may arrive in any pieces. A byte that is not valid UTF-8 becomes U+FFFD. Control sequences (ECMA-48,
/// CSI and SS3) are dropped as a whole, except those of cursor keys and the marks around a paste.
class KeyReader {
public:
    /// With the ASCII character set, other characters are dropped.
    explicit KeyReader(Charset charset) : charset_(charset) {}

    void take(unsigned char byte);
    /// Takes a key that curses has recognised; inside a paste it is dropped.
    void take(Key key);

    /// No more bytes have arrived: a pending escape byte was the Escape key.
    void pause();

    /// The next complete key.
    std::optional<Key> key();

private:
    enum class Place { text, escape, sequence, paste };

    void takeText(unsigned char byte);
    void takeAfterEscape(unsigned char byte);
    void takeInSequence(unsigned char byte);
    void takeInPaste(unsigned char byte);
    void put(Key key) { keys_.push_back(std::move(key)); }
    void putCharacter(std::string character);
    /// Ends an incomplete character.
    void breakCharacterOff();

    Charset charset_;
    Place place_ = Place::text;
    std::string pending_;  ///< bytes of an incomplete character, sequence or paste
    std::deque<Key> keys_;
};

}  // namespace quillmere::screen
