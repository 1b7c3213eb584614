// What a person chooses on a notice.
#include <signal.h>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

class NoticeAction : public Desktop {
protected:
    NoticeAction()
    {
        hasBus();
        hasService();
        writeText(file("opener"), "#!/bin/sh\necho \"$@\" >> '" + file("opened").string() + "'\n");
        std::filesystem::permissions(file("opener"), std::filesystem::perms::owner_all);
    }

    /// A watch that has given its first notice.
    Process watchingAfterNotice(const std::string& opener = "")
    {
        Process watch = watching({"--open-command", opener.empty() ? file("opener").string() : opener});
        EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
        return watch;
    }
};

TEST_F(NoticeAction, opensThePresentScreen)
{
    person.has(focusOver(90));
    const Process watch = watchingAfterNotice();
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] { return textIn("opened") == "quillmere://open/session-review\n"; }));
    // Another screen by now.
    person.has(stateIn(WorkflowState::idle));
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] {
        return countOf("quillmere://", textIn("opened")) == 2 || !textIn("opened").ends_with("review\n");
    }));
    EXPECT_TRUE(textIn("opened").ends_with("quillmere://open/idle\n"));
}

TEST_F(NoticeAction, lengthensTheBreakByFiveMinutes)
{
    person.has(breakOver(5));
    const Process watch = watchingAfterNotice();
    service().signals("action 1 extend");
    EXPECT_TRUE(eventually([&] { return person.state().breakExtensionSeconds == 300; })) << said();
    EXPECT_FALSE(person.state().breakEndNotifiedAt);
    EXPECT_EQ(textIn("opened"), "");
}

TEST_F(NoticeAction, thatTheEngineRefusesIsSaid)
{
    person.has(breakOver(5));
    const Process watch = watchingAfterNotice();
    person.has(stateIn(WorkflowState::idle));
    service().signals("action 1 extend");
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(),
              "The break is not longer: This action is not available in the current workflow state.\n");
}

TEST_F(NoticeAction, onANoticeOfAnotherProgramIsNotOurs)
{
    person.has(breakOver(5));
    const Process watch = watchingAfterNotice();
    service().signals("action 99 extend");
    service().signals("action 99 default");
    service().signals("action 1 dance");
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] { return !textIn("opened").empty(); }));
    EXPECT_EQ(textIn("opened"), "quillmere://open/break\n");
    EXPECT_EQ(person.state().breakExtensionSeconds, 0);
}

TEST_F(NoticeAction, onANoticeOfAnotherServiceIsNotOurs)
{
    person.has(breakOver(5));
    const Process watch = watchingAfterNotice();
    hasService();
    // That of another program, which the new service counts as the first.
    service().signals("action 1 default");
    person.has(asking(person.state(), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said();
    EXPECT_EQ(textIn("opened"), "");
}

TEST_F(NoticeAction, isHeardOnceThoughTwoWatch)
{
    person.has(breakOver(5));
    const Process first = watchingAfterNotice();
    EXPECT_TRUE(eventually([&] { return recordCount() == 1; }));
    const Words options = {"--open-command", file("opener").string(), "--hook",
                           "echo >> '" + file("seen").string() + "'"};
    const Process second = watching(options, "second");
    // It has a notifier of its own, in case the first ends.
    EXPECT_TRUE(eventually([&] { return !childrenOf(second.number()).empty(); }));
    person.has(asking(person.state(), 1, "May I?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(2) && countOf("\n", textIn("seen")) == 2; })) << said();
    service().signals("action 1 extend");
    service().signals("action 2 default");
    EXPECT_TRUE(eventually([&] { return !textIn("opened").empty(); }));
    // What the second does next shows that it had the time.
    person.has(asking(person.state(), 2, "Which build?"));
    EXPECT_TRUE(eventually([&] { return hasNotices(3) && countOf("\n", textIn("seen")) == 3; })) << said();
    EXPECT_EQ(person.state().breakExtensionSeconds, 300);
    EXPECT_EQ(countOf("quillmere://", textIn("opened")), 1U);
}

TEST_F(NoticeAction, isHeardByTheNextWatch)
{
    person.has(breakOver(5));
    {
        Process first = watchingAfterNotice();
        EXPECT_TRUE(eventually([&] { return recordCount() == 1; }));
        EXPECT_EQ(first.endBy(SIGTERM), 0);
    }
    const Process second = watching({"--open-command", file("opener").string()}, "second");
    EXPECT_TRUE(eventually([&] {
        service().signals("action 1 default");
        return !textIn("opened").empty();
    }));
}

TEST_F(NoticeAction, thatCannotOpenAnythingIsSaid)
{
    person.has(focusOver(90));
    Process watch = watchingAfterNotice("/nowhere/opener");
    service().signals("action 1 default");
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Opening the screen failed: No such file or directory.\n");
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
}

}  // namespace
}  // namespace quillmere::test
