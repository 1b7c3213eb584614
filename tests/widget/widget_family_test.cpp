// The sizes of a widget and their layouts.
#include <quillmere/widget/widget_family.hpp>

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using Family = QuillmereWidgetFamily;
using Layout = QuillmereWidgetLayout;

TEST(WidgetFamily, hasTheseCasesInThisOrderWithTheseProperties)
{
    constexpr struct {
        Family family;
        std::string_view rawValue;
        std::int64_t relativeArea;
        Layout layout;
        bool prefersTwoColumns;
    } rows[] = {
        {Family::small, "small", 1, Layout::compact, false},
        {Family::medium, "medium", 2, Layout::split, false},
        {Family::large, "large", 4, Layout::detailed, false},
        {Family::extraLarge, "extraLarge", 8, Layout::detailed, true},
    };
    ASSERT_EQ(allCases<Family>().size(), std::size(rows));
    for (std::size_t index = 0; index < std::size(rows); ++index) {
        const auto& row = rows[index];
        SCOPED_TRACE(row.rawValue);
        EXPECT_EQ(allCases<Family>()[index], row.family);
        EXPECT_EQ(rawValue(row.family), row.rawValue);
        EXPECT_EQ(fromRawValue<Family>(row.rawValue), row.family);
        EXPECT_EQ(relativeArea(row.family), row.relativeArea);
        EXPECT_EQ(layout(row.family), row.layout);
        EXPECT_EQ(prefersTwoColumns(row.family), row.prefersTwoColumns);
    }
}

TEST(WidgetFamily, isNotSpelledWithAHyphen)
{
    EXPECT_EQ(fromRawValue<Family>("extra-large"), std::nullopt);
    EXPECT_EQ(fromRawValue<Family>("ExtraLarge"), std::nullopt);
}

TEST(WidgetFamily, isSupportedInEverySizeTheSmallestFirst)
{
    EXPECT_EQ(supported<Family>,
              (std::array{Family::small, Family::medium, Family::large, Family::extraLarge}));
}

TEST(WidgetFamily, isLargestAsExtraLarge) { EXPECT_EQ(largest<Family>, Family::extraLarge); }

TEST(WidgetLayout, hasTheseCasesInThisOrderWithTheseTexts)
{
    constexpr std::array layouts{Layout::compact, Layout::split, Layout::detailed};
    EXPECT_EQ(allCases<Layout>(), layouts);
    EXPECT_EQ(rawValue(Layout::compact), "compact");
    EXPECT_EQ(rawValue(Layout::split), "split");
    EXPECT_EQ(rawValue(Layout::detailed), "detailed");
}

TEST(WidgetLayout, showsTheFullPlanWhenDetailedOnly)
{
    EXPECT_FALSE(showsFullPlan(Layout::compact));
    EXPECT_FALSE(showsFullPlan(Layout::split));
    EXPECT_TRUE(showsFullPlan(Layout::detailed));
}

TEST(WidgetFamilyDeathTest, stopsTheProgramForAValueThatIsNoCase)
{
    EXPECT_DEATH(relativeArea(static_cast<Family>(4)), "none of its cases");
}

}  // namespace
}  // namespace quillmere::test
