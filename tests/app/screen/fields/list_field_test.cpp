#include "screen/fields/list_field.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

class List : public testing::Test {
protected:
    ListField field{"outcomes", "What?", {}};

    bool press(Key::Kind kind) { return field.take({kind}, roomy) != Effect::notForIt; }
    void types(const std::string& text)
    {
        type([this](const Key& key) { field.take(key, roomy); }, text);
    }
    std::string texts() const
    {
        std::string all;
        for (const auto& item : field.value()) {
            all += item["text"].get<std::string>() + "|";
        }
        return all;
    }
};

TEST_F(List, growsWithEnter)
{
    types("one\ntwo");
    EXPECT_EQ(texts(), "one|two|");
}

TEST_F(List, takesEachPastedLineAsOne)
{
    types("one\nand \nthree");
    press(Key::Kind::up);
    EXPECT_EQ(field.take(pasted("two\n\n\tindented\t2\n  \nlast\n"), roomy), Effect::changed);
    EXPECT_EQ(texts(), "one|and two| indented 2|last|three|");
    types("!");
    field.take(pasted(" \n"), roomy);
    EXPECT_EQ(texts(), "one|and two| indented 2|last!|three|");
}

TEST_F(List, isLeftWithEnterOnAnEmptyLastOne)
{
    types("one\n");
    EXPECT_FALSE(press(Key::Kind::enter));
    EXPECT_EQ(texts(), "one||");
}

TEST_F(List, losesAnEmptyOneThatIsRubbedOutButNotTheOnlyOne)
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

TEST_F(List, isWalkedThroughUpAndDown)
{
    types("one\ntwo");
    EXPECT_TRUE(press(Key::Kind::up));
    types("!");
    EXPECT_EQ(texts(), "one!|two|");
    EXPECT_FALSE(press(Key::Kind::up));
    EXPECT_TRUE(press(Key::Kind::down));
    EXPECT_FALSE(press(Key::Kind::down));
}

TEST_F(List, keepsWhatItsItemsStandFor)
{
    const auto kept = nlohmann::json::parse(R"([{"key":"A","text":"one"},{"key":"","text":"two"}])");
    field.setValue(kept);
    EXPECT_EQ(field.value(), kept);
    field.setValue(nlohmann::json::parse(R"([{"key":7}])"));
    field.setValue("no list");
    field.setValue(nlohmann::json::array());
    EXPECT_EQ(field.value(), kept);
}

}  // namespace
}  // namespace quillmere::test
