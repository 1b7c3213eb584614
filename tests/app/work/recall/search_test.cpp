#include "work/recall/search.hpp"

#include "support/sample_states.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using work::SearchedText;

TEST(SearchedText, occursInEveryTextOfABlockInEitherCase)
{
    Block block = blockInWork(1, 2);
    block.reflection = sampleReflection();
    for (const char* const text : {"chapter ONE", "deadline", "blue folder", "first action 2", "drawer",
                                   "result 1", "mail", "close the door", "HALF"}) {
        EXPECT_TRUE(SearchedText(text).occursIn(block, moment)) << text;
    }
    EXPECT_FALSE(SearchedText("chapter three").occursIn(block, moment));
}

TEST(SearchedText, occursEverywhereWhenItIsEmpty)
{
    EXPECT_TRUE(SearchedText("").occursIn(Block::default_(moment), moment));
}

}  // namespace
}  // namespace quillmere::test
