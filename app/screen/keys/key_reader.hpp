// Decodes the bytes that a terminal sends into keys.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/keys/key.hpp"

#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace quillmere::screen {

/// Bytes may arrive in any pieces. A byte that is not valid UTF-8 becomes U+FFFD. Control sequences (ECMA-48,
/// CSI and SS3) are dropped as a whole, except those of cursor keys, of the mouse, and the marks around a
/// paste.
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

    /// From now on, one answer about the background (terminal_background.hpp) is taken for an answer, and not
    /// for keys. It may come late, in pieces, or never.
    void expectAnswer() { expectsAnswer_ = true; }
    /// The answer, from behind OSC to before its end, once.
    std::optional<std::string> takeAnswer() { return std::exchange(answer_, std::nullopt); }

private:
    enum class Place { text, escape, sequence, paste, answer };

    void takeText(unsigned char byte);
    void takeAfterEscape(unsigned char byte);
    void takeInSequence(unsigned char byte);
    void takeInPaste(unsigned char byte);
    void takeInAnswer(unsigned char byte);
    /// What was taken for a sequence was typed.
    void typeAfterEscape(const std::string& bytes);
    void put(Key key) { keys_.push_back(std::move(key)); }
    void putCharacter(std::string character);
    /// Ends an incomplete character.
    void breakCharacterOff();

    Charset charset_;
    Place place_ = Place::text;
    std::string pending_;  ///< bytes of an incomplete character, sequence or paste
    std::deque<Key> keys_;
    bool expectsAnswer_ = false;
    std::optional<std::string> answer_;
};

}  // namespace quillmere::screen
