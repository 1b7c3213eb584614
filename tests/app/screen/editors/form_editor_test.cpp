#include "screen/editors/form_editor.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

work::Field fieldOf(const std::string& id, const std::string& question, work::FieldKind kind)
{
    return {.id = id, .question = question, .kind = kind, .value = std::string()};
}

FormEditor sampleForm()
{
    const auto form = std::make_shared<work::Form>(work::FormSubject{work::FormKind::answer, "sample"});
    form->add(fieldOf("line", "A line?", work::FieldKind::line));
    form->add(fieldOf("lines", "Several lines?", work::FieldKind::text));
    work::Field mood = fieldOf("mood", "The mood?", work::FieldKind::choice);
    mood.value = "1";
    mood.options = {{"1", "1"}, {"2", "2"}};
    form->add(mood);
    return FormEditor(form);
}

/// A form of thirty fields.
FormEditor longForm()
{
    const auto form = std::make_shared<work::Form>(work::FormSubject{work::FormKind::answer, "long"});
    for (int number = 0; number < 30; ++number) {
        const std::string name = std::to_string(number);
        form->add(fieldOf(name, "Field " + name, work::FieldKind::line));
    }
    return FormEditor(form);
}

void types(FormEditor& form, const std::string& text)
{
    type([&](const Key& key) { form.take(key, usualWindow); }, text);
}

TEST(FormEditor, isFilledInWithKeys)
{
    FormEditor form = sampleForm();
    types(form, "one\nfirst\nsecond");
    form.take({Key::Kind::tab}, usualWindow);
    types(form, "2");
    EXPECT_EQ(form.form()->text("line"), "one");
    EXPECT_EQ(form.form()->text("lines"), "first\nsecond");
    EXPECT_EQ(form.form()->text("mood"), "2");
}

TEST(FormEditor, goesAroundWithTabAndStopsAtTheEndsWithArrows)
{
    FormEditor form = sampleForm();
    form.take({Key::Kind::up}, usualWindow);
    types(form, "a");
    form.take({Key::Kind::backTab}, usualWindow);
    types(form, "2");
    form.take({Key::Kind::down}, usualWindow);
    form.take({Key::Kind::tab}, usualWindow);
    types(form, "b");
    EXPECT_EQ(form.form()->text("line"), "ab");
    EXPECT_EQ(form.form()->text("mood"), "2");
}

TEST(FormEditor, reportsWhetherAValueHasChanged)
{
    FormEditor form = sampleForm();
    EXPECT_FALSE(form.take({Key::Kind::left}, usualWindow));
    EXPECT_FALSE(form.take({Key::Kind::tab}, usualWindow));
    EXPECT_FALSE(form.form()->isTouched());
    EXPECT_TRUE(form.take(typed("x"), usualWindow));
    EXPECT_TRUE(form.form()->isTouched());
}

TEST(FormEditor, takesAPasteAsText)
{
    FormEditor form = sampleForm();
    EXPECT_TRUE(form.take(pasted("one\ntwo\tthree\n"), usualWindow));
    form.take({Key::Kind::tab}, usualWindow);
    form.take(pasted("one\ntwo\n"), usualWindow);
    form.take({Key::Kind::tab}, usualWindow);
    EXPECT_FALSE(form.take(pasted("2\n"), usualWindow));
    EXPECT_EQ(form.form()->text("line"), "one two three");
    EXPECT_EQ(form.form()->text("lines"), "one\ntwo\n");
    EXPECT_EQ(form.form()->text("mood"), "1");
}

TEST(FormEditor, beginsWithTheValuesOfTheForm)
{
    FormEditor form = sampleForm();
    form.form()->setValue(0, "draft");
    FormEditor later(form.form());
    types(later, "s");
    EXPECT_EQ(later.form()->text("line"), "drafts");
}

TEST(FormEditor, movesToAFieldByItsId)
{
    FormEditor form = sampleForm();
    form.moveTo("mood");
    types(form, "2");
    EXPECT_EQ(form.form()->text("mood"), "2");
}

TEST(FormEditor, drawsQuestionsBesideTheFieldsInAWideWindowAndAboveThemInANarrowOne)
{
    const FormEditor form = sampleForm();
    Canvas large(usualWindow, Charset::ascii);
    form.draw(large, {0, 2, 20, 76}, {});
    EXPECT_EQ(large.rowText(0), "  > A line?                                 .");
    Canvas narrow(smallWindow, Charset::ascii);
    form.draw(narrow, {0, 1, 8, 38}, {});
    EXPECT_EQ(narrow.rowText(0), " > A line?");
    EXPECT_EQ(narrow.rowText(1), "   .");
}

TEST(FormEditor, keepsTheCursorInView)
{
    FormEditor form = longForm();
    for (int number = 0; number < 30; ++number) {
        for (const Size window : {usualWindow, smallWindow}) {
            Canvas canvas(window);
            form.draw(canvas, {1, 1, window.rows - 3, window.columns - 2}, {});
            ASSERT_TRUE(canvas.cursor()) << number;
            EXPECT_GE(canvas.cursor()->row, 1U);
            EXPECT_LT(canvas.cursor()->row, window.rows - 2);
            EXPECT_NE(canvas.text().find("Field " + std::to_string(number)), std::string::npos);
        }
        form.take({Key::Kind::tab}, usualWindow);
    }
}

TEST(FormEditor, scrollsByPagesUntilAKeyMovesBackToTheCursor)
{
    FormEditor form = longForm();
    const Area area{0, 2, 10, 76};
    const auto topRow = [&] {
        Canvas canvas(usualWindow, Charset::ascii);
        form.draw(canvas, area, {});
        return canvas.rowText(0).substr(4, 9);
    };
    form.scroll(false, area);
    EXPECT_EQ(topRow().substr(0, 7), "Field 0");
    form.scroll(true, area);
    EXPECT_EQ(topRow().substr(0, 7), "Field 9");
    for (int times = 0; times < 9; ++times) {
        form.scroll(true, area);
    }
    EXPECT_EQ(topRow().substr(0, 8), "Field 20");
    form.scroll(false, area);
    EXPECT_EQ(topRow().substr(0, 8), "Field 11");
    form.take(typed("x"), usualWindow);
    EXPECT_EQ(topRow().substr(0, 7), "Field 0");
}

}  // namespace
}  // namespace quillmere::test
