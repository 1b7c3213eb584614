#include "screen/canvas/layout.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

TEST(Layout, followsTheSizeOfTheWindow)
{
    using enum QuillmereWidgetFamily;
    EXPECT_EQ(familyFor({.rows = 12, .columns = 40}), small);
    EXPECT_EQ(familyFor({.rows = 17, .columns = 200}), small);
    EXPECT_EQ(familyFor({.rows = 18, .columns = 64}), medium);
    EXPECT_EQ(familyFor({.rows = 24, .columns = 79}), medium);
    EXPECT_EQ(familyFor({.rows = 24, .columns = 80}), large);
    EXPECT_EQ(familyFor({.rows = 24, .columns = 120}), extraLarge);
}

TEST(Layout, hasWideMarginsFromEightyColumns)
{
    EXPECT_EQ(marginFor({.rows = 24, .columns = 79}), 2U);
    EXPECT_EQ(marginFor({.rows = 10, .columns = 80}), 4U);
}

TEST(Layout, turnsPointsIntoWholeCells)
{
    using namespace QuillmereDesign;
    EXPECT_EQ(columnsOf(Spacing::none), 0U);
    EXPECT_EQ(columnsOf(Spacing::tight), 1U);
    EXPECT_EQ(columnsOf(Spacing::regular), 2U);
    EXPECT_EQ(columnsOf(Spacing::section), 4U);
    EXPECT_EQ(rowsOf(Spacing::tight), 0U);
    EXPECT_EQ(rowsOf(Spacing::regular), 1U);
    EXPECT_EQ(rowsOf(Spacing::section), 2U);
}

}  // namespace
}  // namespace quillmere::test
