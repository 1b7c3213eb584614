#include "screen/editors/list_field_editor.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

class ListEditor : public testing::Test {
protected:
    ListFieldEditor field{list({{"", ""}})};

    static work::Field list(std::vector<work::ListItem> items)
    {
        return {
            .id = "outcome", .question = "What?", .kind = work::FieldKind::list, .value = std::move(items)};
    }

    bool press(Key::Kind kind) { return field.take({kind}, roomy) != Effect::notForIt; }
    void types(const std::string& text)
    {
        type([this](const Key& key) { field.take(key, roomy); }, text);
    }
    std::string texts() const
    {
        std::string all;
        const work::FieldValue value = field.value();
        for (const work::ListItem& item : std::get<std::vector<work::ListItem>>(value)) {
            all += item.text + "|";
        }
        return all;
    }
};

TEST_F(ListEditor, addsAnItemWithEnter)
{
    types("one\ntwo");
    EXPECT_EQ(texts(), "one|two|");
}

TEST_F(ListEditor, makesAnItemOfEachPastedLine)
{
    types("one\nand \nthree");
    press(Key::Kind::up);
    EXPECT_EQ(field.take(pasted("two\n\n\tindented\t2\n  \nlast\n"), roomy), Effect::changed);
    EXPECT_EQ(texts(), "one|and two| indented 2|last|three|");
    types("!");
    field.take(pasted(" \n"), roomy);
    EXPECT_EQ(texts(), "one|and two| indented 2|last!|three|");
}

TEST_F(ListEditor, isLeftWithEnterOnAnEmptyLastItem)
{
    types("one\n");
    EXPECT_FALSE(press(Key::Kind::enter));
    EXPECT_EQ(texts(), "one||");
}

TEST_F(ListEditor, removesAnEmptyItemWithBackspaceButNotTheOnlyItem)
{
    types("one\nx");
    press(Key::Kind::backspace);
    press(Key::Kind::backspace);
    EXPECT_EQ(texts(), "one|");
    for (int times = 0; times < 9; ++times) {
        press(Key::Kind::backspace);
    }
    EXPECT_EQ(texts(), "|");
}

TEST_F(ListEditor, movesBetweenItemsUpAndDown)
{
    types("one\ntwo");
    EXPECT_TRUE(press(Key::Kind::up));
    types("!");
    EXPECT_EQ(texts(), "one!|two|");
    EXPECT_FALSE(press(Key::Kind::up));
    EXPECT_TRUE(press(Key::Kind::down));
    EXPECT_FALSE(press(Key::Kind::down));
}

TEST_F(ListEditor, keepsTheKeysOfItsItems)
{
    ListFieldEditor kept(list({{"A", "one"}, {"", "two"}}));
    kept.take(typed("!"), roomy);
    EXPECT_EQ(kept.value(), work::FieldValue(std::vector<work::ListItem>{{"A", "one!"}, {"", "two"}}));
}

}  // namespace
}  // namespace quillmere::test
