#include "statefile/tokens.hpp"

#include <quillmere/records/identifier.hpp>
#include <quillmere/records/json/date_text.hpp>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillmere::test {
namespace {

using json::FixedText;
using statefile::Tokens;

TEST(Tokens, areTakenOneAfterTheOther)
{
    Tokens tokens("\"id\" : 17");
    EXPECT_TRUE(tokens.take(FixedText("\"id\" : ")));
    EXPECT_TRUE(tokens.skip(2));
    EXPECT_EQ(tokens.taken(), 9u);
}

TEST(Tokens, endAStringAtAQuoteThatIsNotEscaped)
{
    Tokens tokens(R"(say \"so\" \\\\",)");
    EXPECT_TRUE(tokens.takeRestOfString());
    EXPECT_TRUE(tokens.take(FixedText(",")));
}

TEST(Tokens, tellWhetherTheTextIsTooShort)
{
    for (const std::string_view text : {"", "\"i"}) {
        Tokens tokens(text);
        EXPECT_FALSE(tokens.take(FixedText("\"id\"")));
        EXPECT_TRUE(tokens.isCutOff());
    }
    Tokens other("\"is\"");
    EXPECT_FALSE(other.take(FixedText("\"id\"")));
    EXPECT_FALSE(other.isCutOff());
    Tokens open("no end\\\"");
    EXPECT_FALSE(open.takeRestOfString());
    EXPECT_TRUE(open.isCutOff());
}

/// Every text that differs from one in one byte, and that text.
std::vector<std::string> neighboursOf(const std::string& text)
{
    std::vector<std::string> all;
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            all.push_back(text);
            all.back()[place] = static_cast<char>(byte);
        }
    }
    return all;
}

TEST(Tokens, takeAnIdentifierOnlyAsItIsWritten)
{
    for (const std::string& text : neighboursOf("0123456A-89BF-FA90-0AF9-CDEF00112233")) {
        const std::optional<Identifier> identifier = Identifier::fromText(text);
        EXPECT_EQ(Tokens(text).takeIdentifier(), identifier && identifier->text() == text) << text;
    }
}

TEST(Tokens, takeAnInstantOnlyAsItIsWritten)
{
    for (const std::string& text : neighboursOf("2024-02-29T09:18:07Z")) {
        const std::optional<Instant> instant = json::instantFromDateText(text);
        EXPECT_EQ(Tokens(text).takeInstant(), instant && json::dateText(*instant) == text) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
