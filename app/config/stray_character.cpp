#include "config/stray_character.hpp"

namespace quillmere::config {
namespace {

/// Follows a text from character to character, as far as it takes to know what is in quotes.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::optional<TextPlace> strayCharacter()
    {
        while (index_ < text_.size()) {
            if (isBeyondAscii() && !mayBeAnything()) {
                return place_;
            }
            step();
        }
        return std::nullopt;
    }

private:
    bool isBeyondAscii() const { return static_cast<unsigned char>(text_[index_]) >= 0x80; }
    bool isContinuation() const { return (static_cast<unsigned char>(text_[index_]) & 0xC0) == 0x80; }
    /// A byte order mark may stand at the very beginning.
    bool isByteOrderMark() const { return index_ < 3 && text_.starts_with("\xEF\xBB\xBF"); }
    bool mayBeAnything() const
    {
        return isComment_ || (!quotes_.empty() && !isEscaped_) || isByteOrderMark();
    }

    void step()
    {
        const char character = text_[index_];
        if (character == '\n') {
            isComment_ = false;
            quotes_ = quotes_.size() == 1 ? "" : quotes_;  // such a string ends with its line, as an error
        } else if (!isComment_ && quotes_.empty()) {
            isComment_ = character == '#';
            open(character);
        } else if (!isComment_ && !isEscaped_ && text_.substr(index_).starts_with(quotes_)) {
            move(quotes_.size() - 1);
            quotes_ = "";
        }
        const bool isBasic = quotes_.starts_with('"');
        isEscaped_ = isBasic && !isEscaped_ && text_[index_] == '\\';
        move(1);
    }

    void open(char character)
    {
        if (character != '"' && character != '\'') {
            return;
        }
        const std::string_view three = character == '"' ? R"(""")" : "'''";
        quotes_ = text_.substr(index_).starts_with(three) ? three : three.substr(0, 1);
        move(quotes_.size() - 1);
    }

    void move(std::size_t bytes)
    {
        for (; bytes > 0; --bytes, ++index_) {
            if (text_[index_] == '\n') {
                place_ = {.line = place_.line + 1, .column = 1};
            } else if (!isContinuation()) {
                ++place_.column;
            }
        }
    }

    std::string_view text_;
    std::size_t index_ = 0;
    TextPlace place_{.line = 1, .column = 1};
    std::string_view quotes_;  ///< that end the string; empty: outside of one
    bool isComment_ = false;
    bool isEscaped_ = false;  ///< the character before was a backslash in a string
};

}  // namespace

std::optional<TextPlace> strayCharacter(std::string_view text) { return Scanner(text).strayCharacter(); }

}  // namespace quillmere::config
