// Takes the tokens of a text, one after the other.
#pragma once

#include <quillmere/records/json/fixed_text.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillmere::statefile {

/// The next eight bytes, in the order of this machine.
inline std::uint64_t wordAt(const char* place)
{
    std::uint64_t word = 0;
    std::memcpy(&word, place, sizeof word);
    return word;
}

/// Each function takes what it names from the front of the text and returns whether it was there; if not,
/// nothing is taken.
class Tokens {
public:
    explicit Tokens(std::string_view text) : text_(text), rest_(text) {}

    /// Inlined, since the text is known there: a seventh of the time of a walk through a file.
    template <std::size_t length>
    [[gnu::always_inline]] bool take(const json::FixedText<length>& expected)
    {
        if (!has(length) || !isAt(rest_.data(), expected)) {
            return false;
        }
        rest_.remove_prefix(length);
        return true;
    }

    bool take(std::string_view expected)
    {
        if (!has(expected.size()) || !rest_.starts_with(expected)) {
            return false;
        }
        rest_.remove_prefix(expected.size());
        return true;
    }

    bool skip(std::size_t count)
    {
        if (!has(count)) {
            return false;
        }
        rest_.remove_prefix(count);
        return true;
    }

    /// The rest of a string with its closing quote, whatever is in it.
    bool takeRestOfString();

    // In the form in which values are written; anything else is not there.

    /// The rest of a string with its closing quote.
    bool takeRestOfWrittenString();
    bool takeNumber(double& value);
    bool takeInteger(double& value);
    /// Both without quotes.
    bool takeInstant();
    bool takeIdentifier();

    std::size_t taken() const { return text_.size() - rest_.size(); }
    std::string_view rest() const { return rest_; }

    /// Whether something that was not there may be there once the text is longer.
    bool isCutOff() const { return isCutOff_; }

private:
    /// Word by word, which is faster than a call of memcmp(3) for texts as short as these.
    template <std::size_t length>
    static bool isAt(const char* place, const json::FixedText<length>& expected)
    {
        const char* const text = expected.characters.data();
        if constexpr (length < sizeof(std::uint64_t)) {
            return std::memcmp(place, text, length) == 0;
        } else {
            constexpr std::size_t lastWord = length - sizeof(std::uint64_t);
            std::uint64_t difference = wordAt(place + lastWord) ^ wordAt(text + lastWord);
            for (std::size_t begin = 0; begin < lastWord; begin += sizeof(std::uint64_t)) {
                difference |= wordAt(place + begin) ^ wordAt(text + begin);
            }
            return difference == 0;
        }
    }

    bool has(std::size_t count)
    {
        const bool isLongEnough = rest_.size() >= count;
        isCutOff_ = isCutOff_ || !isLongEnough;
        return isLongEnough;
    }

    bool takeEscape();
    bool takeMultibyteCharacter();
    /// The characters of a number.
    std::string_view numberText();

    std::string_view text_;
    std::string_view rest_;
    bool isCutOff_ = false;
};

}  // namespace quillmere::statefile
