#include "screen/keys/key_reader.hpp"

#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace quillmere::screen {
namespace {

constexpr unsigned char escapeByte = 0x1B;
constexpr unsigned char afterAscii = 0x80;
constexpr std::string_view pasteBegin = "[200~";
constexpr std::string_view pasteEnd = "\x1b[201~";

struct ControlKey {
    unsigned char byte;
    Key::Kind kind;
};

constexpr auto controlKeys = std::to_array<ControlKey>({
    {'\r', Key::Kind::enter},
    {'\n', Key::Kind::enter},
    {'\t', Key::Kind::tab},
    {'\b', Key::Kind::backspace},
    {0x7F, Key::Kind::backspace},
});

struct SequenceKey {
    std::string_view sequence;  ///< without the escape byte
    Key::Kind kind;
};

/// The keys of a cursor block as xterm and most others send them: in both of its modes, and as on a VT220.
constexpr auto sequenceKeys = std::to_array<SequenceKey>({
    {"[A", Key::Kind::up},          {"OA", Key::Kind::up},           {"[B", Key::Kind::down},
    {"OB", Key::Kind::down},        {"[C", Key::Kind::right},        {"OC", Key::Kind::right},
    {"[D", Key::Kind::left},        {"OD", Key::Kind::left},         {"[H", Key::Kind::home},
    {"OH", Key::Kind::home},        {"[1~", Key::Kind::home},        {"[7~", Key::Kind::home},
    {"[F", Key::Kind::end},         {"OF", Key::Kind::end},          {"[4~", Key::Kind::end},
    {"[8~", Key::Kind::end},        {"[3~", Key::Kind::remove},      {"[1;5D", Key::Kind::wordLeft},
    {"[1;3D", Key::Kind::wordLeft}, {"[1;5C", Key::Kind::wordRight}, {"[1;3C", Key::Kind::wordRight},
});

/// Letters that move by words with Alt, as in shells. Terminals send Escape before the letter.
std::optional<Key::Kind> withAlt(unsigned char byte)
{
    switch (byte) {
        case 'b': return Key::Kind::wordLeft;
        case 'f': return Key::Kind::wordRight;
        default: return std::nullopt;
    }
}

/// The next number of a sequence, and what ends it, are removed from its front. Absent for none, or one too
/// large for a screen.
std::optional<std::size_t> takeNumber(std::string_view& rest)
{
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    const auto taken = static_cast<std::size_t>(stop - rest.data());
    constexpr std::size_t most = 10'000;
    if (error != std::errc() || taken == rest.size() || number > most) {
        return std::nullopt;
    }
    rest.remove_prefix(taken + 1);
    return number;
}

/// A press of the mouse as xterm reports it in its mode 1006: "[<0;10;5M", the first column and row being 1.
std::optional<Key> mouseKey(std::string_view sequence)
{
    constexpr std::string_view begin = "[<";
    constexpr std::size_t firstButton = 0;
    constexpr std::size_t wheelUp = 64;
    constexpr std::size_t wheelDown = 65;
    if (!sequence.starts_with(begin) || !sequence.ends_with('M')) {
        return std::nullopt;
    }
    std::string_view rest = sequence.substr(begin.size());
    const auto button = takeNumber(rest);
    const auto column = button ? takeNumber(rest) : std::nullopt;
    const auto row = column ? takeNumber(rest) : std::nullopt;
    if (!row || !rest.empty() || *column == 0 || *row == 0) {
        return std::nullopt;
    }
    switch (*button) {
        case firstButton: return Key{.kind = Key::Kind::click, .place = {*row - 1, *column - 1}};
        case wheelUp: return Key{Key::Kind::pageUp};
        case wheelDown: return Key{Key::Kind::pageDown};
        default: return std::nullopt;
    }
}

/// ST and BEL.
constexpr auto answerEnds = std::to_array<std::string_view>({"\x1b\\", "\x07"});

/// Whether an answer about the background may begin so: "11;rgb:1c1c/1c1c/1c1c".
bool mayBeginAnswer(std::string_view bytes)
{
    constexpr std::string_view begin = "11;rgb";
    constexpr std::string_view others = "a:/0123456789abcdefABCDEF";
    constexpr std::size_t longest = 40;
    const std::string_view rest = bytes.substr(std::min(bytes.size(), begin.size()));
    const std::size_t other = rest.find_first_not_of(others);
    return begin.starts_with(bytes.substr(0, begin.size())) && bytes.size() < longest &&
           (other == std::string_view::npos || (other + 1 == rest.size() && rest.back() == '\x1b'));
}

bool isControl(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }

/// The C1 control characters: U+0080 to U+009F.
bool isHighControl(std::string_view character)
{
    return character.size() == 2 && character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0;
}

bool canBeginCharacter(unsigned char byte) { return byte >= 0xC2 && byte <= 0xF4; }

/// The text of a paste with "\n" as line break and without control characters other than tabs.
std::string pastedText(std::string_view bytes, Charset charset)
{
    std::string text;
    bool isAfterReturn = false;
    for (std::string_view rest = bytes; !rest.empty();) {
        const json::Utf8Sequence sequence = json::frontSequence(rest);
        const std::string_view character = rest.substr(0, sequence.length);
        const auto front = static_cast<unsigned char>(character.front());
        rest.remove_prefix(sequence.length);
        if (character == "\r" || (character == "\n" && !isAfterReturn)) {
            text += '\n';
        } else if (front >= afterAscii ? charset == Charset::unicode && !isHighControl(character)
                                       : !isControl(front) || character == "\t") {
            text += sequence.wellFormed ? character : json::replacementCharacter;
        }
        isAfterReturn = character == "\r";
    }
    return text;
}

}  // namespace

void KeyReader::take(unsigned char byte)
{
    switch (place_) {
        case Place::text: takeText(byte); break;
        case Place::escape: takeAfterEscape(byte); break;
        case Place::sequence: takeInSequence(byte); break;
        case Place::paste: takeInPaste(byte); break;
        case Place::answer: takeInAnswer(byte); break;
    }
}

void KeyReader::take(Key key)
{
    if (place_ == Place::paste) {
        return;
    }
    pause();
    if (place_ == Place::text) {
        breakCharacterOff();
    }
    place_ = Place::text;
    pending_.clear();
    put(std::move(key));
}

void KeyReader::pause()
{
    if (place_ == Place::escape) {
        place_ = Place::text;
        put({Key::Kind::escape});
    }
}

std::optional<Key> KeyReader::key()
{
    if (keys_.empty()) {
        return std::nullopt;
    }
    Key key = std::move(keys_.front());
    keys_.pop_front();
    return key;
}

void KeyReader::takeText(unsigned char byte)
{
    if (!pending_.empty()) {
        const std::string longer = pending_ + static_cast<char>(byte);
        const json::Utf8Sequence sequence = json::frontSequence(longer);
        if (sequence.length == longer.size()) {
            pending_ = longer;
            if (sequence.wellFormed) {
                putCharacter(std::exchange(pending_, {}));
            }
            return;
        }
        breakCharacterOff();
    }
    if (byte == escapeByte) {
        place_ = Place::escape;
    } else if (isControl(byte)) {
        for (const ControlKey& key : controlKeys) {
            if (key.byte == byte) {
                put({key.kind});
                return;
            }
        }
        if (byte >= 1 && byte <= 26) {
            put(withControl(static_cast<char>('a' + byte - 1)));
        }
    } else if (canBeginCharacter(byte)) {
        pending_ = static_cast<char>(byte);
    } else {
        putCharacter(byte < afterAscii ? std::string(1, static_cast<char>(byte))
                                       : std::string(json::replacementCharacter));
    }
}

void KeyReader::takeAfterEscape(unsigned char byte)
{
    if (byte == '[' || byte == 'O') {
        place_ = Place::sequence;
        pending_ = static_cast<char>(byte);
    } else if (byte == ']' && expectsAnswer_) {
        place_ = Place::answer;
        pending_.clear();
    } else if (const std::optional<Key::Kind> kind = withAlt(byte)) {
        place_ = Place::text;
        put({*kind});
    } else {
        pause();
        takeText(byte);
    }
}

void KeyReader::takeInAnswer(unsigned char byte)
{
    pending_ += static_cast<char>(byte);
    for (const std::string_view end : answerEnds) {
        if (pending_.ends_with(end)) {
            pending_.resize(pending_.size() - end.size());
            place_ = Place::text;
            expectsAnswer_ = false;
            answer_ = std::exchange(pending_, {});
            return;
        }
    }
    if (!mayBeginAnswer(pending_)) {
        typeAfterEscape("]" + std::exchange(pending_, {}));
    }
}

void KeyReader::typeAfterEscape(const std::string& bytes)
{
    place_ = Place::text;
    put({Key::Kind::escape});
    for (const char byte : bytes) {
        take(static_cast<unsigned char>(byte));
    }
}

void KeyReader::takeInSequence(unsigned char byte)
{
    constexpr unsigned char firstFinal = 0x40;
    const bool isPartOfIt = !isControl(byte) && byte < afterAscii;
    if (isPartOfIt && byte < firstFinal) {
        pending_ += static_cast<char>(byte);
        return;
    }
    const std::string sequence = std::exchange(pending_, {}) + static_cast<char>(byte);
    place_ = sequence == pasteBegin ? Place::paste : Place::text;
    if (!isPartOfIt) {
        takeText(byte);
        return;
    }
    for (const SequenceKey& key : sequenceKeys) {
        if (key.sequence == sequence) {
            put({key.kind});
        }
    }
    if (std::optional<Key> key = mouseKey(sequence)) {
        put(*std::move(key));
    }
}

void KeyReader::takeInPaste(unsigned char byte)
{
    pending_ += static_cast<char>(byte);
    if (pending_.ends_with(pasteEnd)) {
        pending_.resize(pending_.size() - pasteEnd.size());
        place_ = Place::text;
        put({Key::Kind::paste, pastedText(std::exchange(pending_, {}), charset_)});
    }
}

void KeyReader::putCharacter(std::string character)
{
    const bool isAscii = static_cast<unsigned char>(character.front()) < afterAscii;
    if (isAscii || (charset_ == Charset::unicode && !isHighControl(character))) {
        put(typed(std::move(character)));
    }
}

void KeyReader::breakCharacterOff()
{
    if (!std::exchange(pending_, {}).empty()) {
        putCharacter(std::string(json::replacementCharacter));
    }
}

}  // namespace quillmere::screen
