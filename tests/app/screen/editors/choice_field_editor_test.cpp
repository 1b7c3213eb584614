#include "screen/editors/choice_field_editor.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

work::FieldValue valueOf(const std::string& key) { return key; }

work::Field rating(const std::string& chosen, bool areOptionsLong = false)
{
    return {.id = "energy",
            .question = "How much?",
            .kind = work::FieldKind::choice,
            .value = chosen,
            .options = {{"1", "1"}, {"2", "2"}, {"3", "3"}},
            .areOptionsLong = areOptionsLong};
}

TEST(ChoiceFieldEditor, takesDigitsAndArrows)
{
    ChoiceFieldEditor field(rating("2"));
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), valueOf("3"));
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), valueOf("3"));
    field.take(typed("1"), roomy);
    EXPECT_EQ(field.value(), valueOf("1"));
    field.take(typed("9"), roomy);
    EXPECT_EQ(field.value(), valueOf("1"));
}

TEST(ChoiceFieldEditor, takesTheFirstLetterInEitherCase)
{
    work::Field done = rating("");
    done.options = {{"Yes", "Yes"}, {"Half", "Half"}, {"No", "No"}};
    ChoiceFieldEditor field(done);
    EXPECT_EQ(field.value(), valueOf(""));
    field.take(typed("h"), roomy);
    EXPECT_EQ(field.value(), valueOf("Half"));
    field.take(typed("N"), roomy);
    EXPECT_EQ(field.value(), valueOf("No"));
}

TEST(ChoiceFieldEditor, choosesTheFirstOptionWithAnArrowWhenNothingIsChosen)
{
    ChoiceFieldEditor field(rating("7"));
    EXPECT_EQ(field.value(), valueOf(""));
    field.take({Key::Kind::right}, roomy);
    EXPECT_EQ(field.value(), valueOf("1"));
}

TEST(ChoiceFieldEditor, leavesUpAndDownToTheFormAtTheFirstAndTheLastOption)
{
    ChoiceFieldEditor field(rating("2", true));
    EXPECT_EQ(field.take({Key::Kind::up}, roomy), Effect::changed);
    EXPECT_EQ(field.take({Key::Kind::up}, roomy), Effect::notForIt);
    ChoiceFieldEditor across(rating("2"));
    EXPECT_EQ(across.take({Key::Kind::down}, roomy), Effect::notForIt);
    EXPECT_EQ(across.value(), valueOf("2"));
}

TEST(ChoiceFieldEditor, marksTheChosenOptionAlsoWithoutColour)
{
    Canvas canvas({1, 30}, Charset::ascii);
    ChoiceFieldEditor(rating("2")).draw(canvas, canvas.area(), true, {});
    EXPECT_EQ(canvas.rowText(0), "o 1   * 2   o 3");
    EXPECT_EQ(canvas.cursor(), (Place{0, 6}));
}

}  // namespace
}  // namespace quillmere::test
