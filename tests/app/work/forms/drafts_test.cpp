#include "work/forms/drafts.hpp"

#include <sys/stat.h>

#include "program_testing.hpp"
#include "work/forms/form_testing.hpp"

namespace quillmere::test {
namespace {

using namespace work;

class DraftsOfAPerson : public testing::Test {
protected:
    TemporaryDirectory around;
    const std::filesystem::path directory = around.path() / "quillmere/beside";
    const Drafts drafts{directory};
    const QuillmereState state = stateIn(WorkflowState::blockReview);

    Form fresh() const { return formOf(state); }
    Form halfWritten() const
    {
        Form form = fresh();
        fill(form, "output", "Two chapters\nand \"notes\"");
        return form;
    }
};

TEST_F(DraftsOfAPerson, bringBackWhatWasWritten)
{
    drafts.keep(halfWritten());
    Form form = fresh();
    EXPECT_EQ(drafts.fillIn(form), BroughtBack::all);
    EXPECT_EQ(form.text("output"), "Two chapters\nand \"notes\"");
    EXPECT_EQ(form.changes(), halfWritten().changes());
}

TEST_F(DraftsOfAPerson, bringBackTheItemsOfAList)
{
    const QuillmereState planning = stateIn(WorkflowState::blockPlanning);
    Form form = formOf(planning);
    fillList(form, "outcome", {"One", "Two"});
    drafts.keep(form);
    Form later = formOf(planning);
    EXPECT_EQ(drafts.fillIn(later), BroughtBack::all);
    EXPECT_EQ(later.field("outcome").value, form.field("outcome").value);
}

TEST_F(DraftsOfAPerson, areKeptAlsoWithMalformedText)
{
    Form form = fresh();
    fill(form, "output", "a\xFF");
    fill(form, "lessons", "b");
    drafts.keep(form);
    Form later = fresh();
    EXPECT_EQ(drafts.fillIn(later), BroughtBack::all);
    EXPECT_EQ(later.text("lessons"), "b");
}

TEST_F(DraftsOfAPerson, bringNothingIntoAnotherForm)
{
    drafts.keep(halfWritten());
    Form other({FormKind::reflection, identifier(99).text()});
    EXPECT_EQ(drafts.fillIn(other), BroughtBack::nothing);
}

TEST_F(DraftsOfAPerson, areRemovedWhenTheFormHasNoChangesLeft)
{
    Form form = halfWritten();
    drafts.keep(form);
    fill(form, "output", "");
    drafts.keep(form);
    EXPECT_EQ(namesIn(directory), Words{});
}

TEST_F(DraftsOfAPerson, areRemovedAfterThirtyDaysWhenTheirSubjectIsGone)
{
    const FormSubject gone{FormKind::plan, "gone"};
    const auto keepsOn = [&](const FormSubject& subject, int daysAgo) {
        Form form(subject);
        form.add(line("text"));
        fill(form, "text", "x");
        drafts.keep(form);
        const auto now = std::filesystem::file_time_type::clock::now();
        std::filesystem::last_write_time(
            directory / ("draft-" + std::string(rawValue(subject.kind)) + "-" + subject.name + ".json"),
            now - std::chrono::hours(24 * daysAgo));
    };
    keepsOn(gone, 31);
    keepsOn({FormKind::review, "young"}, 29);
    keepsOn({FormKind::review, "current"}, 99);
    writeText(directory / "other.json", "{}");
    std::filesystem::last_write_time(directory / "other.json", std::filesystem::file_time_type::min());
    drafts.removeOld({{FormKind::review, "current"}});
    EXPECT_EQ(namesIn(directory),
              (Words{"draft-review-current.json", "draft-review-young.json", "other.json"}));
}

TEST_F(DraftsOfAPerson, areRemovedOnceTheFormIsSaved)
{
    drafts.keep(halfWritten());
    drafts.forget(*subjectFor(state));
    drafts.forget(*subjectFor(state));
    EXPECT_EQ(namesIn(directory), Words{});
}

TEST_F(DraftsOfAPerson, areOneFileAFormReadableByItsOwnerOnly)
{
    drafts.keep(halfWritten());
    drafts.keep(halfWritten());
    EXPECT_EQ(namesIn(directory), Words{"draft-reflection-" + state.currentBlock->id.text() + ".json"});
    struct stat status {};
    ASSERT_EQ(::stat(directory.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST_F(DraftsOfAPerson, areIgnoredWhenTheyCannotBeRead)
{
    drafts.keep(halfWritten());
    for (const char* broken :
         {"", "{", "[]", "{\"output\": 7}", "{\"output\": {}}", "{\"output\": {\"value\": 7}}",
          "{\"output\": {\"value\": [{\"key\": 7}]}}", "\xFF"}) {
        writeText(directory / namesIn(directory).front(), broken);
        Form form = fresh();
        EXPECT_EQ(drafts.fillIn(form), BroughtBack::nothing) << broken;
        EXPECT_TRUE(form.changes().empty()) << broken;
    }
}

TEST_F(DraftsOfAPerson, leaveNoTemporaryFileWhenTheyCannotBeWritten)
{
    drafts.keep(halfWritten());
    const std::filesystem::path file = directory / namesIn(directory).front();
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_THROW(drafts.keep(halfWritten()), std::system_error);
    EXPECT_EQ(namesIn(directory), Words{file.filename().string()});
}

TEST(Drafts, areNotKeptWithoutADirectory)
{
    const Drafts drafts{std::filesystem::path()};
    Form form({FormKind::question, "new"});
    drafts.keep(form);
    drafts.forget(form.subject());
    drafts.removeOld({});
    EXPECT_FALSE(drafts.areKept());
    EXPECT_EQ(drafts.fillIn(form), BroughtBack::nothing);
}

}  // namespace
}  // namespace quillmere::test
