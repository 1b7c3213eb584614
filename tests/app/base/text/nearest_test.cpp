#include "base/text/nearest.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::editDistance;
using base::nearest;

TEST(EditDistance, countsInsertedDeletedReplacedAndSwappedLetters)
{
    EXPECT_EQ(editDistance("focus", "focus"), 0u);
    EXPECT_EQ(editDistance("focus", "focuss"), 1u);
    EXPECT_EQ(editDistance("focus", "fcus"), 1u);
    EXPECT_EQ(editDistance("focus", "fokus"), 1u);
    EXPECT_EQ(editDistance("focus", "focsu"), 1u);
    EXPECT_EQ(editDistance("", "ask"), 3u);
    EXPECT_EQ(editDistance("ask", ""), 3u);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3u);
}

TEST(Nearest, isTheKnownWordThatDiffersLeast)
{
    EXPECT_EQ(nearest("focsu", {"plan", "focus"}), "focus");
    EXPECT_EQ(nearest("resrot", {"report", "restore", "reset"}), "report");
}

TEST(Nearest, isNotAWordOfAnotherKind)
{
    EXPECT_EQ(nearest("dance", {"plan", "focus"}), std::nullopt);
    EXPECT_EQ(nearest("x", {"ui", "ask"}), std::nullopt);
    EXPECT_EQ(nearest("focus", {}), std::nullopt);
}

TEST(Nearest, isTheFirstOfSeveralThatAreAsClose) { EXPECT_EQ(nearest("und", {"undo", "end"}), "undo"); }

}  // namespace
}  // namespace quillmere::test
