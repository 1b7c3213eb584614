// Pieces of any size are split into lines.
#include "agent/protocol/line_reader.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmere::agent::protocol {
namespace {

using Heard = std::vector<std::string>;

/// A reader of lines of at most eight bytes, and the lines that it has read.
class EightBytes {
public:
    Heard heard;

    void take(const std::string& piece)
    {
        reader_.take(piece);
        while (!reader_.isAtEnd()) {
            if (const std::optional<LineReader::Line> line = reader_.next()) {
                heard.push_back(line->isTooLong ? "(too long)" : line->text);
            }
        }
    }

private:
    LineReader reader_{8};
};

TEST(LineReader, cutsPiecesOfAnySizeIntoLines)
{
    const std::string text = "one\ntwo\r\n\n \t\r\nthree";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        SCOPED_TRACE(size);
        EightBytes eight;
        for (std::size_t at = 0; at < text.size(); at += size) {
            eight.take(text.substr(at, size));
        }
        EXPECT_EQ(eight.heard, (Heard{"one", "two"}));
        eight.take("\n");
        EXPECT_EQ(eight.heard, (Heard{"one", "two", "three"}));
    }
}

TEST(LineReader, givesOneLineAtATime)
{
    LineReader reader(8);
    reader.take("one\ntwo\nth");
    EXPECT_EQ(reader.next().value().text, "one");
    EXPECT_FALSE(reader.isAtEnd());
    EXPECT_EQ(reader.next().value().text, "two");
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isAtEnd());
}

TEST(LineReader, skipsALineThatIsTooLongAndReadsOn)
{
    EightBytes eight;
    eight.take("12345678\n1234567890");
    EXPECT_EQ(eight.heard, (Heard{"12345678", "(too long)"}));
    eight.take("and more\nnext\n");
    EXPECT_EQ(eight.heard, (Heard{"12345678", "(too long)", "next"}));
}

TEST(LineReader, doesNotCountTheEndOfALine)
{
    EightBytes eight;
    eight.take("12345678\r\n123456789\n123456789\r\nnext\n");
    EXPECT_EQ(eight.heard, (Heard{"12345678", "(too long)", "(too long)", "next"}));
}

TEST(LineReader, keepsNothingOfALineThatIsTooLong)
{
    EightBytes eight;
    eight.take("1234567890");
    eight.take("\n");
    EXPECT_EQ(eight.heard, (Heard{"(too long)"}));
}

TEST(LineReader, countsALineThatComesInPiecesAsOne)
{
    EightBytes eight;
    eight.take("1234");
    eight.take("567890");
    EXPECT_EQ(eight.heard, (Heard{"(too long)"}));
}

}  // namespace
}  // namespace quillmere::agent::protocol
