#include "screen/fields/choice_field.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

ChoiceField rating(const std::string& chosen,
                   ChoiceField::Direction direction = ChoiceField::Direction::across)
{
    return {"energy", "How much?", {{"1", "1"}, {"2", "2"}, {"3", "3"}}, chosen, direction};
}

TEST(ChoiceField, takesDigitsAndArrows)
{
    ChoiceField field = rating("2");
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), "3");
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), "3");
    field.take(typed("1"), roomy);
    EXPECT_EQ(field.value(), "1");
    field.take(typed("9"), roomy);
    EXPECT_EQ(field.value(), "1");
}

TEST(ChoiceField, takesTheFirstLetterInEitherCase)
{
    ChoiceField field("done", "Done?", {{"Yes", "Yes"}, {"Half", "Half"}, {"No", "No"}}, "");
    EXPECT_EQ(field.value(), "");
    field.take(typed("h"), roomy);
    EXPECT_EQ(field.value(), "Half");
    field.take(typed("N"), roomy);
    EXPECT_EQ(field.value(), "No");
}

TEST(ChoiceField, beginsWithTheFirstWhereNothingWasChosen)
{
    ChoiceField field = rating("7");
    EXPECT_EQ(field.value(), "");
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), "1");
}

TEST(ChoiceField, leavesUpAndDownToTheFormAtItsEnds)
{
    ChoiceField field = rating("2", ChoiceField::Direction::down);
    EXPECT_EQ(field.take({Key::Kind::up}, roomy), Effect::changed);
    EXPECT_EQ(field.take({Key::Kind::up}, roomy), Effect::notForIt);
    ChoiceField across = rating("2");
    EXPECT_EQ(across.take({Key::Kind::down}, roomy), Effect::notForIt);
    EXPECT_EQ(across.value(), "2");
}

TEST(ChoiceField, showsWhatIsChosenWithoutColourToo)
{
    Canvas canvas({1, 30}, Charset::ascii);
    rating("2").draw(canvas, canvas.area(), true, {});
    EXPECT_EQ(canvas.rowText(0), "o 1   * 2   o 3");
    EXPECT_EQ(canvas.cursor(), (Place{0, 6}));
}

}  // namespace
}  // namespace quillmere::test
