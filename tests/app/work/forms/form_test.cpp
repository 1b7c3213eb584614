#include "work/forms/form.hpp"

#include <gtest/gtest.h>

#include "work/forms/form_testing.hpp"

namespace quillmere::test {
namespace {

using namespace work;

const FormSubject sample{FormKind::answer, "sample"};

Form formWith(const std::string& one, const std::string& other)
{
    Form form(sample);
    form.add(line("one", one));
    form.add(line("other", other));
    return form;
}

TEST(Form, isTouchedOnceAValueIsSet)
{
    Form form = formWith("", "");
    EXPECT_FALSE(form.isTouched());
    fill(form, "one", "x");
    EXPECT_TRUE(form.isTouched());
    EXPECT_EQ(form.text("one"), "x");
}

TEST(Form, hasTheFieldsThatDifferFromTheirBeginningAsChanges)
{
    Form form = formWith("old", "same");
    EXPECT_TRUE(form.changes().empty());
    fill(form, "one", "new");
    fill(form, "other", "same");
    EXPECT_EQ(form.changes(), (std::vector<FieldChange>{{"one", "old", "new"}}));
}

TEST(Form, bringsBackOnlyTheFieldsThatWereChanged)
{
    Form form = formWith("", "old");
    fill(form, "one", "mine");
    Form later = formWith("", "new");
    EXPECT_EQ(later.bringBack(form.changes()), BroughtBack::all);
    EXPECT_EQ(later.text("one"), "mine");
    EXPECT_EQ(later.text("other"), "new");
    EXPECT_TRUE(later.isTouched());
}

TEST(Form, saysThatADraftReplacesAValueThatWasChangedElsewhere)
{
    Form form = formWith("", "old");
    fill(form, "one", "mine");
    Form later = formWith("theirs", "old");
    EXPECT_EQ(later.bringBack(form.changes()), BroughtBack::overChanges);
    EXPECT_EQ(later.text("one"), "mine");
}

TEST(Form, bringsNothingBackWhereTheValueIsTheSame)
{
    Form form = formWith("", "old");
    fill(form, "one", "mine");
    Form same = formWith("mine", "old");
    EXPECT_EQ(same.bringBack(form.changes()), BroughtBack::nothing);
    EXPECT_FALSE(same.isTouched());
}

TEST(Form, leavesOutValuesThatDoNotFitTheirField)
{
    Form form = formWith("", "");
    form.add({.id = "list", .question = "", .kind = FieldKind::list, .value = {}});
    form.add(
        {.id = "choice", .question = "", .kind = FieldKind::choice, .value = "a", .options = {{"a", "A"}}});
    const std::vector<ListItem> items = {{"", "item"}};
    EXPECT_EQ(form.bringBack({{"one", "", items},
                              {"list", "", "text"},
                              {"list", "", std::vector<ListItem>()},
                              {"choice", "a", "unknown"},
                              {"missing", "", "text"}}),
              BroughtBack::nothing);
    EXPECT_TRUE(form.changes().empty());
}

TEST(Form, beginsAChoiceWithNothingChosenWhenItsValueIsNoOption)
{
    Form form(sample);
    form.add(
        {.id = "choice", .question = "", .kind = FieldKind::choice, .value = "7", .options = {{"1", "1"}}});
    EXPECT_EQ(form.text("choice"), "");
    EXPECT_TRUE(form.changes().empty());
}

TEST(Form, beginsAListWithOneItemAtLeast)
{
    Form form(sample);
    form.add({.id = "list", .question = "", .kind = FieldKind::list, .value = std::vector<ListItem>()});
    EXPECT_EQ(form.field("list").value, FieldValue(std::vector<ListItem>(1)));
}

TEST(Form, putsAHeadingAboveTheNextFieldOnly)
{
    Form form(sample);
    form.addHeading("Its time");
    form.add(line("one"));
    form.add(line("other"));
    EXPECT_EQ(form.field("one").heading, "Its time");
    EXPECT_EQ(form.field("other").heading, "");
}

}  // namespace
}  // namespace quillmere::test
