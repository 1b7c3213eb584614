// The answers of terminals about their background.
#include "base/text/terminal_background.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::Background;
using base::backgroundFrom;

TEST(Background, isLightOrDarkByTheAnswer)
{
    EXPECT_EQ(backgroundFrom("11;rgb:ffff/ffff/ffff"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgb:fa/f9/f6"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgba:fdfd/f6f6/e3e3/ffff"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgb:1717/1616/1414"), Background::dark);
    EXPECT_EQ(backgroundFrom("11;rgb:0/0/0"), Background::dark);
    EXPECT_EQ(backgroundFrom("11;rgb:0000/2b2b/3636"), Background::dark);
}

TEST(Background, isUnknownWithoutAColour)
{
    for (const char* const answer :
         {"", "11;", "11;rgb:", "11;rgb:ff/ff", "11;rgb:ff//ff", "11;rgb:ffffff/0/0", "11;cmyk:0/0/0",
          "10;rgb:ff/ff/ff", "11;rgb:gg/ff/ff"}) {
        EXPECT_EQ(backgroundFrom(answer), std::nullopt) << answer;
    }
}

}  // namespace
}  // namespace quillmere::test
