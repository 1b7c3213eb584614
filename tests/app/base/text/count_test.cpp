// Counted things in words.
#include "base/text/count.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

TEST(CountText, isSingularForOneThingOnly)
{
    EXPECT_EQ(base::countText(0, "question"), "0 questions");
    EXPECT_EQ(base::countText(1, "question"), "1 question");
    EXPECT_EQ(base::countText(2, "question"), "2 questions");
}

TEST(MoreText, countsWhatAListLeavesOut) { EXPECT_EQ(base::moreText(3), "and 3 more"); }

}  // namespace
}  // namespace quillmere::test
