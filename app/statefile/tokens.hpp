// Takes the tokens of a text, one after the other.
#pragma once

#include <quillmere/records/json/fixed_text.hpp>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace quillmere::statefile {

/// Each function takes what it names from the front of the text and returns whether it was there. After a
/// false the place is no longer of use.
class Tokens {
public:
    explicit Tokens(std::string_view text) : text_(text), rest_(text) {}

    template <std::size_t length>
    bool take(const json::FixedText<length>& expected)
    {
        isCutOff_ = rest_.size() < length;
        if (isCutOff_ || std::memcmp(rest_.data(), expected.characters.data(), length) != 0) {
            return false;
        }
        rest_.remove_prefix(length);
        return true;
    }

    bool skip(std::size_t count)
    {
        isCutOff_ = rest_.size() < count;
        rest_.remove_prefix(isCutOff_ ? rest_.size() : count);
        return !isCutOff_;
    }

    /// The rest of a string, with its closing quote.
    bool takeRestOfString()
    {
        std::size_t from = 0;
        for (;;) {
            const std::size_t quote = rest_.find('"', from);
            isCutOff_ = quote == rest_.npos;
            if (isCutOff_) {
                return false;
            }
            const std::size_t escapes = backslashesBefore(quote);
            if (escapes % 2 == 0) {
                rest_.remove_prefix(quote + 1);
                return true;
            }
            from = quote + 1;
        }
    }

    std::size_t taken() const { return text_.size() - rest_.size(); }

    /// Whether the last token was not found because the text ends before it does.
    bool isCutOff() const { return isCutOff_; }

private:
    std::size_t backslashesBefore(std::size_t place) const
    {
        std::size_t count = 0;
        while (count < place && rest_[place - count - 1] == '\\') {
            ++count;
        }
        return count;
    }

    std::string_view text_;
    std::string_view rest_;
    bool isCutOff_ = false;
};

}  // namespace quillmere::statefile
