// Bytes to lines, in whatever pieces they come.
#include "agent/protocol/line_reader.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmere::app::protocol {
namespace {

using Heard = std::vector<std::string>;

/// What a reader of lines of at most eight bytes hears.
class EightBytes {
public:
    Heard heard;
    LineReader reader{8,
                      {.line = [this](std::string_view line) { heard.emplace_back(line); },
                       .tooLong = [this] { heard.emplace_back("(too long)"); }}};
};

TEST(LineReader, cutsPiecesOfAnySizeIntoLines)
{
    const std::string text = "one\ntwo\r\n\n \t\r\nthree";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        SCOPED_TRACE(size);
        EightBytes eight;
        for (std::size_t at = 0; at < text.size(); at += size) {
            eight.reader.take(text.substr(at, size));
        }
        EXPECT_EQ(eight.heard, (Heard{"one", "two"}));
        eight.reader.finish();
        EXPECT_EQ(eight.heard, (Heard{"one", "two", "three"}));
    }
}

TEST(LineReader, skipsALineThatIsTooLongAndReadsOn)
{
    EightBytes eight;
    eight.reader.take("12345678\n123456789");
    EXPECT_EQ(eight.heard, (Heard{"12345678", "(too long)"}));
    eight.reader.take("and more\nnext\n");
    EXPECT_EQ(eight.heard, (Heard{"12345678", "(too long)", "next"}));
}

TEST(LineReader, keepsNothingOfALineThatIsTooLong)
{
    EightBytes eight;
    eight.reader.take("123456789");
    eight.reader.finish();
    EXPECT_EQ(eight.heard, (Heard{"(too long)"}));
}

TEST(LineReader, countsALineThatComesInPiecesAsOne)
{
    EightBytes eight;
    eight.reader.take("1234");
    eight.reader.take("56789");
    EXPECT_EQ(eight.heard, (Heard{"(too long)"}));
}

}  // namespace
}  // namespace quillmere::app::protocol
