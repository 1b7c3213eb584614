// Ill-formed UTF-8: in memory it is repaired when written, in a file it is refused.
#include <quillmere/records/outcome.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "proofs/support/figures.hpp"
#include "proofs/values/utf8_check.hpp"
#include "records/coding_helpers.hpp"

namespace quillmere::test {
namespace {

/// The bytes on both sides of every boundary in the rules of UTF-8 and JSON.
constexpr auto borderBytes = std::to_array<unsigned char>(
    {0x00, 0x1F, 0x20, 0x22, 0x41, 0x5C, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1, 0xC2,
     0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF8, 0xFC, 0xFE, 0xFF});

template <class... Byte>
std::string bytes(Byte... byte)
{
    return {static_cast<char>(byte)...};
}

/// Whether these bytes are the beginning of a well-formed character.
bool beginsCharacter(std::string_view front)
{
    const std::string begun(front);
    // Each first byte accepts one of these as its second byte; the first of them is a valid third and fourth
    // byte.
    for (const char* const second : {"\x80", "\x90", "\xA0"}) {
        const std::string completed = begun.size() == 1 ? begun + second : begun;
        for (std::size_t length = completed.size(); length <= 4; ++length) {
            if (isUtf8(completed + std::string(length - completed.size(), '\x80'))) {
                return true;
            }
        }
    }
    return false;
}

/// The text as it is written to a file: each maximal incomplete beginning of a character, and each byte that
/// cannot begin one, is replaced by one U+FFFD.
std::string repaired(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        std::size_t length = 1;
        bool isCharacter = false;
        for (std::size_t tried = 1; tried <= std::min<std::size_t>(4, text.size()); ++tried) {
            // A character has only one first byte, so longer fronts would contain several characters.
            const std::string_view front = text.substr(0, tried);
            if (tried == 1 || static_cast<unsigned char>(front.front()) >= 0xC2) {
                if (isUtf8(front) && !isCharacter) {
                    length = tried;
                    isCharacter = true;
                } else if (!isCharacter && beginsCharacter(front)) {
                    length = tried;
                }
            }
        }
        result += isCharacter ? std::string(text.substr(0, length)) : "\xEF\xBF\xBD";
        text.remove_prefix(length);
    }
    return result;
}

/// Whether a title is written as text, and reads back with only its bad bytes replaced.
bool isRepaired(const std::string& title)
{
    const std::string file = compactText(Outcome{Identifier(Identifier::Octets{}), title});
    return isUtf8(file) && decoded<Outcome>(file).title == repaired(title);
}

/// Whether a file with these bytes in a value, in an ignored value, in a key or outside of all strings is
/// refused as invalid JSON.
bool isRefused(const std::string& sequence, std::size_t place)
{
    static const std::string id = "\"id\":\"00000000-0000-0000-0000-000000000000\"";
    const auto file = [&] {
        switch (place % 4) {
            case 0: return "{" + id + ",\"title\":\"" + sequence + "\"}";
            case 1: return "{" + id + ",\"title\":\"\",\"zzz\":[\"ab" + sequence + "c\"]}";
            case 2: return "{" + id + ",\"title\":\"\",\"k" + sequence + "\":1}";
            default: return "{" + id + ",\"title\":\"\"}" + sequence;
        }
    };
    const std::optional<DecodingError> error = decodingError<Outcome>(file());
    return isMalformed(error) && isUtf8(error->what());
}

/// Checks sequences one by one and many in one text.
class IllFormed : public testing::Test {
protected:
    ~IllFormed() override { EXPECT_GT(refused_, 0U); }

    /// Checks a sequence; a well-formed one is only written. `places` is the number of places in a file to
    /// try, of four.
    void see(const std::string& sequence, std::size_t places)
    {
        text_ += sequence + '|';
        ++written_;
        if (text_.size() > 1000) {
            finishText();
        }
        if (isUtf8(sequence) || places == 0) {
            return;
        }
        for (std::size_t place = 0; place < places; ++place) {
            ASSERT_TRUE(isRefused(sequence, refused_ + place)) << testing::PrintToString(sequence);
        }
        ++refused_;
    }

    void finishText()
    {
        ASSERT_TRUE(isRepaired(text_)) << testing::PrintToString(text_);
        text_.clear();
    }

    void report(const std::string& kind)
    {
        finishText();
        reportFigure("Ill-formed UTF-8", kind + ", written as valid texts", written_);
        reportFigure("Ill-formed UTF-8", kind + ", refused in files", refused_);
    }

private:
    std::string text_;
    std::uint64_t written_ = 0;
    std::uint64_t refused_ = 0;
};

TEST_F(IllFormed, everyByteAndEveryPairOfBytes)
{
    for (unsigned first = 0; first < 256; ++first) {
        see(bytes(first), 4);
        for (unsigned second = 0; second < 256; ++second) {
            // In files, the short form tries every eighth pair, which covers every first and every second
            // byte.
            see(bytes(first, second), amount((first + second) % 8 == 0 ? 1 : 0, 4));
        }
        if (HasFatalFailure()) {
            return;
        }
    }
    report("1 and 2 bytes");
}

TEST_F(IllFormed, everyTripleOfBytes)
{
    // All bytes in the long form; the boundary bytes in the short form.
    std::vector<unsigned> chosen(borderBytes.begin(), borderBytes.end());
    if (inLongForm()) {
        chosen.clear();
        for (unsigned byte = 0; byte < 256; ++byte) {
            chosen.push_back(byte);
        }
    }
    for (const unsigned first : chosen) {
        for (const unsigned second : chosen) {
            for (const unsigned third : chosen) {
                // In files, the short form tries every eighth one.
                const bool isInFile = inLongForm() || (second + third) % 8 == 0;
                see(bytes(first, second, third), isInFile ? 1 : 0);
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
    report("3 bytes");
}

TEST_F(IllFormed, fourBytesAtTheBordersAndCutShort)
{
    // Overlong forms, surrogate pairs, code points beyond U+10FFFF, and beginnings of all of these.
    for (unsigned first = 0xC0; first < 256; ++first) {
        if (!inLongForm() && std::find(borderBytes.begin(), borderBytes.end(), first) == borderBytes.end()) {
            continue;
        }
        for (const unsigned second : borderBytes) {
            for (const unsigned third : {0x41u, 0x7Fu, 0x80u, 0xBFu, 0xC0u}) {
                for (const unsigned fourth : {0x22u, 0x7Fu, 0x80u, 0xBFu, 0xC0u}) {
                    see(bytes(first, second, third, fourth), amount(fourth == 0x80 ? 1 : 0, 4));
                }
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
    for (const char* const sequence : {"\xC0\x80",
                                       "\xE0\x80\x80",
                                       "\xF0\x80\x80\x80",
                                       "\xF8\x80\x80\x80\x80",
                                       "\xFC\x80\x80\x80\x80\x80",
                                       "\xC0\xAF",
                                       "\xE0\x9F\xBF",
                                       "\xF0\x8F\xBF\xBF",
                                       "\xED\xA0\x80",
                                       "\xED\xBF\xBF",
                                       "\xED\xA0\x81\xED\xB0\x80",
                                       "\xF4\x90\x80\x80",
                                       "\xF7\xBF\xBF\xBF",
                                       "\xF0\x9F\x99",
                                       "\xF0\x9F",
                                       "\xF0",
                                       "\xE2\x82",
                                       "\xE2",
                                       "\xC3",
                                       "\xF0\x9F\x99\xF0\x9F\x99\x82"}) {
        see(sequence, 4);
    }
    report("4 bytes");
}

/// A text may end inside a character, at any distance from a multiple of 16 bytes.
TEST_F(IllFormed, charactersCutShortAtTheEndOfTheText)
{
    const std::string character = "\xF0\x9F\x99\x82";
    for (std::size_t before = 0; before < 40; ++before) {
        for (std::size_t length = 1; length < character.size(); ++length) {
            const std::string cut = std::string(before, 'x') + character.substr(0, length);
            ASSERT_TRUE(isRepaired(cut)) << before;
            see(cut, 4);
        }
    }
    report("cut short");
}

}  // namespace
}  // namespace quillmere::test
