// Text in XML.
#include "base/text/xml.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::escapedForXml;

TEST(EscapedForXml, replacesTheCharactersOfMarkup)
{
    EXPECT_EQ(escapedForXml("<b title=\"a\" class='b'>&amp;</b>"),
              "&lt;b title=&quot;a&quot; class=&#39;b&#39;&gt;&amp;amp;&lt;/b&gt;");
}

TEST(EscapedForXml, replacesCharactersThatXmlDoesNotAllow)
{
    EXPECT_EQ(escapedForXml("a\uFFFEb\uFFFFc"), "a\uFFFDb\uFFFDc");
}

TEST(EscapedForXml, keepsEverythingElse)
{
    EXPECT_EQ(escapedForXml("\u6F22 \uFFFD\n\U0001F642"), "\u6F22 \uFFFD\n\U0001F642");
    EXPECT_EQ(escapedForXml(""), "");
}

}  // namespace
}  // namespace quillmere::test
