#include "statefile/tokens.hpp"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quillmere::test
