// The next leader knows the notices on the screen.
#include "notices/shown_notices.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using notices::NoticeSubject;
using notices::ShownNotices;

class NoticeOnTheScreen : public testing::Test {
protected:
    TemporaryDirectory directory;
    const std::filesystem::path file = directory.path() / "shown.json";

    /// As another process shows two notices.
    void showNotices(const std::string& service) const
    {
        ShownNotices shown(file);
        shown.read(service);
        shown.show(NoticeSubject::work, 3);
        shown.show(NoticeSubject::questions, 4);
    }
};

TEST_F(NoticeOnTheScreen, isKnownToTheNextLeaderAtTheSameService)
{
    showNotices("bus:1.5");
    ShownNotices next(file);
    EXPECT_FALSE(next.isEmpty());
    next.read("bus:1.5");
    EXPECT_EQ(next.numberOf(NoticeSubject::work), 3U);
    EXPECT_EQ(next.numberOf(NoticeSubject::questions), 4U);
    EXPECT_TRUE(next.has(4));
    EXPECT_FALSE(next.has(5));
}

TEST_F(NoticeOnTheScreen, isUnknownAtAnyOtherService)
{
    showNotices("bus:1.5");
    ShownNotices next(file);
    next.read("bus:1.6");
    EXPECT_TRUE(next.isEmpty());
    EXPECT_EQ(next.numberOf(NoticeSubject::work), 0U);
}

TEST_F(NoticeOnTheScreen, isForgottenWhenItIsClosed)
{
    showNotices("bus:1.5");
    {
        ShownNotices shown(file);
        shown.read("bus:1.5");
        shown.close(3);
    }
    ShownNotices next(file);
    next.read("bus:1.5");
    EXPECT_FALSE(next.has(3));
    EXPECT_TRUE(next.has(4));
}

TEST_F(NoticeOnTheScreen, isUnknownWhereTheFileCannotBeRead)
{
    for (const char* text : {"", "{", "[]", "{\"service\":1}", "{\"service\":\"bus:1.5\",\"numbers\":7}"}) {
        writeText(file, text);
        ShownNotices shown(file);
        shown.read("bus:1.5");
        EXPECT_TRUE(shown.isEmpty()) << text;
    }
}

TEST_F(NoticeOnTheScreen, isKnownToOneProcessWhereNoFileCanBeWritten)
{
    for (const std::filesystem::path& nowhere :
         {std::filesystem::path(), directory.path() / "none" / "file"}) {
        ShownNotices shown(nowhere);
        shown.read("bus:1.5");
        shown.show(NoticeSubject::work, 3);
        EXPECT_TRUE(shown.has(3));
        EXPECT_TRUE(ShownNotices(nowhere).isEmpty());
    }
}

}  // namespace
}  // namespace quillmere::test
