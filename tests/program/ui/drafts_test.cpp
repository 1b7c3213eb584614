#include "ui/drafts.hpp"

#include <sys/stat.h>

#include "program_testing.hpp"
#include "ui/forms/forms.hpp"
#include "ui/ui_testing.hpp"

namespace quillmere::test {
namespace {

using namespace app::ui;

class DraftsOfAPerson : public testing::Test {
protected:
    TemporaryDirectory around;
    const std::filesystem::path directory = around.path() / "quillmere/beside";
    const Drafts drafts{directory};
    const QuillmereState state = stateIn(WorkflowState::blockReview);

    Form fresh() const { return formFor(*subjectFor(state), state, moment); }
    Form halfWritten() const
    {
        Form form = fresh();
        type([&](const Key& key) { form.take(key, usualWindow); }, "Two chapters\nand \"notes\"");
        return form;
    }
};

TEST_F(DraftsOfAPerson, bringBackWhatWasWritten)
{
    drafts.keep(halfWritten());
    Form form = fresh();
    EXPECT_TRUE(drafts.fillIn(form));
    EXPECT_EQ(form.values(), halfWritten().values());
}

TEST_F(DraftsOfAPerson, bringNothingIntoAnotherForm)
{
    drafts.keep(halfWritten());
    Form other({FormKind::reflection, identifier(99).text()});
    EXPECT_FALSE(drafts.fillIn(other));
}

TEST_F(DraftsOfAPerson, areForgotten)
{
    drafts.keep(halfWritten());
    drafts.forget(*subjectFor(state));
    drafts.forget(*subjectFor(state));
    EXPECT_EQ(namesIn(directory), Words{});
}

TEST_F(DraftsOfAPerson, areOneFileAFormForItsOwnerOnly)
{
    drafts.keep(halfWritten());
    drafts.keep(halfWritten());
    EXPECT_EQ(namesIn(directory), Words{"draft-reflection-" + state.currentBlock->id.text() + ".json"});
    struct stat status {};
    ASSERT_EQ(::stat(directory.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST_F(DraftsOfAPerson, areNoneWhenTheyCannotBeRead)
{
    drafts.keep(halfWritten());
    for (const char* broken : {"", "{", "[]", "{\"output\": 7}", "\xFF"}) {
        writeText(directory / namesIn(directory).front(), broken);
        Form form = fresh();
        drafts.fillIn(form);
        EXPECT_EQ(form.values(), fresh().values()) << broken;
    }
}

TEST_F(DraftsOfAPerson, leaveNothingBehindWhenTheyCannotBeKept)
{
    drafts.keep(halfWritten());
    const std::filesystem::path file = directory / namesIn(directory).front();
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_THROW(drafts.keep(halfWritten()), std::system_error);
    EXPECT_EQ(namesIn(directory), Words{file.filename().string()});
}

TEST(Drafts, areNowhereWithoutADirectory)
{
    const Drafts drafts{std::filesystem::path()};
    Form form({FormKind::question, "new"});
    drafts.keep(form);
    drafts.forget(form.subject());
    EXPECT_FALSE(drafts.fillIn(form));
}

}  // namespace
}  // namespace quillmere::test
