#include "base/text/case_folding.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::caseFolded;

TEST(CaseFolded, makesTextsEqualThatDifferInCase)
{
    EXPECT_EQ(caseFolded("Outline"), caseFolded("OUTLINE"));
    EXPECT_EQ(caseFolded("Übung"), caseFolded("ÜBUNG"));
    EXPECT_EQ(caseFolded("Straße"), caseFolded("STRASSE"));
    EXPECT_EQ(caseFolded(""), "");
}

TEST(CaseFolded, hasNoIllFormedBytes) { EXPECT_EQ(caseFolded("A\xFF"), "a\uFFFD"); }

}  // namespace
}  // namespace quillmere::test
