#include "screen/form.hpp"

#include "program_testing.hpp"
#include "screen/fields/choice_field.hpp"
#include "screen/fields/text_field.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

Form sampleForm()
{
    Form form({FormKind::answer, "sample"});
    form.add(std::make_unique<TextField>("line", "A line?", "", TextField::Lines::one));
    form.add(std::make_unique<TextField>("lines", "Several lines?", "", TextField::Lines::several));
    form.add(
        std::make_unique<ChoiceField>("mood", "The mood?", std::vector<Option>{{"1", "1"}, {"2", "2"}}, "1"));
    return form;
}

void types(Form& form, const std::string& text)
{
    type([&](const Key& key) { form.take(key, usualWindow); }, text);
}

TEST(Form, isFilledInWithKeys)
{
    Form form = sampleForm();
    types(form, "one\nfirst\nsecond");
    form.take({Key::Kind::tab}, usualWindow);
    types(form, "2");
    EXPECT_EQ(form.text("line"), "one");
    EXPECT_EQ(form.text("lines"), "first\nsecond");
    EXPECT_EQ(form.text("mood"), "2");
}

TEST(Form, goesAroundWithTabAndStopsWithArrows)
{
    Form form = sampleForm();
    form.take({Key::Kind::up}, usualWindow);
    types(form, "a");
    form.take({Key::Kind::backTab}, usualWindow);
    types(form, "2");
    form.take({Key::Kind::down}, usualWindow);
    form.take({Key::Kind::tab}, usualWindow);
    types(form, "b");
    EXPECT_EQ(form.text("line"), "ab");
    EXPECT_EQ(form.text("mood"), "2");
}

TEST(Form, saysWhenAValueHasChanged)
{
    Form form = sampleForm();
    EXPECT_FALSE(form.take({Key::Kind::left}, usualWindow));
    EXPECT_FALSE(form.take({Key::Kind::tab}, usualWindow));
    EXPECT_FALSE(form.isTouched());
    EXPECT_TRUE(form.take(typed("x"), usualWindow));
    EXPECT_TRUE(form.isTouched());
}

TEST(Form, takesWhatIsPastedAsText)
{
    Form form = sampleForm();
    EXPECT_TRUE(form.take(pasted("one\ntwo\tthree\n"), usualWindow));
    form.take({Key::Kind::tab}, usualWindow);
    form.take(pasted("one\ntwo\n"), usualWindow);
    form.take({Key::Kind::tab}, usualWindow);
    EXPECT_FALSE(form.take(pasted("2\n"), usualWindow));
    EXPECT_EQ(form.text("line"), "one two three");
    EXPECT_EQ(form.text("lines"), "one\ntwo\n");
    EXPECT_EQ(form.text("mood"), "1");
}

/// A field whose value is dear.
class DearField final : public Field {
public:
    explicit DearField(int& count) : Field("dear", "Dear?"), count_(count) {}

    Effect take(const Key&, std::size_t) override { return Effect::changed; }
    std::size_t rows(std::size_t) const override { return 1; }
    void draw(Canvas&, const Area&, bool, Look) const override {}
    nlohmann::json value() const override { return ++count_; }
    void setValue(const nlohmann::json&) override {}

private:
    int& count_;
};

TEST(Form, asksNoFieldForItsValueWithEachKey)
{
    int count = 0;
    Form form({FormKind::answer, "sample"});
    form.add(std::make_unique<DearField>(count));
    const int before = count;
    EXPECT_TRUE(form.take(typed("x"), usualWindow));
    EXPECT_EQ(count, before);
}

Form formWith(const std::string& one, const std::string& other)
{
    Form form({FormKind::answer, "sample"});
    form.add(std::make_unique<TextField>("one", "One?", one, TextField::Lines::one));
    form.add(std::make_unique<TextField>("other", "Other?", other, TextField::Lines::one));
    return form;
}

TEST(Form, bringsBackTheFieldsThatWereChangedInIt)
{
    Form form = formWith("", "old");
    types(form, "mine");
    Form later = formWith("", "new");
    EXPECT_EQ(later.bringBack(form.changes()), BroughtBack::all);
    EXPECT_EQ(later.text("one"), "mine");
    EXPECT_EQ(later.text("other"), "new");
    EXPECT_TRUE(later.isTouched());
}

TEST(Form, saysThatWhatComesBackStandsOverWhatOthersWrote)
{
    Form form = formWith("", "old");
    types(form, "mine");
    Form later = formWith("theirs", "old");
    EXPECT_EQ(later.bringBack(form.changes()), BroughtBack::overChanges);
    EXPECT_EQ(later.text("one"), "mine");
    Form same = formWith("mine", "old");
    EXPECT_EQ(same.bringBack(form.changes()), BroughtBack::nothing);
    EXPECT_FALSE(same.isTouched());
}

TEST(Form, hasQuestionsBesideTheFieldsWhereThereIsRoomAndAboveThemOtherwise)
{
    const Form form = sampleForm();
    Canvas large(usualWindow, Charset::ascii);
    form.draw(large, {0, 2, 20, 76}, {});
    EXPECT_EQ(large.rowText(0), "  > A line?                                 .");
    Canvas narrow(smallWindow, Charset::ascii);
    form.draw(narrow, {0, 1, 8, 38}, {});
    EXPECT_EQ(narrow.rowText(0), " > A line?");
    EXPECT_EQ(narrow.rowText(1), "   .");
}

TEST(Form, keepsTheCursorInView)
{
    Form form({FormKind::answer, "long"});
    for (int number = 0; number < 30; ++number) {
        const std::string name = std::to_string(number);
        form.add(std::make_unique<TextField>(name, "Field " + name, "", TextField::Lines::one));
    }
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

TEST(Form, isScrolledByThePageUntilAKeyBringsTheCursorBack)
{
    Form form({FormKind::answer, "long"});
    for (int number = 0; number < 30; ++number) {
        const std::string name = std::to_string(number);
        form.add(std::make_unique<TextField>(name, "Field " + name, "", TextField::Lines::one));
    }
    const Area area{0, 2, 10, 76};
    const auto topRow = [&] {
        Canvas canvas(usualWindow, Charset::ascii);
        form.draw(canvas, area, {});
        return canvas.rowText(0).substr(4, 9);
    };
    form.scroll(false, usualWindow, area);
    EXPECT_EQ(topRow().substr(0, 7), "Field 0");
    form.scroll(true, usualWindow, area);
    EXPECT_EQ(topRow().substr(0, 7), "Field 9");
    for (int times = 0; times < 9; ++times) {
        form.scroll(true, usualWindow, area);
    }
    EXPECT_EQ(topRow().substr(0, 8), "Field 20");
    form.scroll(false, usualWindow, area);
    EXPECT_EQ(topRow().substr(0, 8), "Field 11");
    form.take(typed("x"), usualWindow);
    EXPECT_EQ(topRow().substr(0, 7), "Field 0");
}

}  // namespace
}  // namespace quillmere::test
