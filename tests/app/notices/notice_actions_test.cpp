// A person's choices on notices.
#include "desktop.hpp"

#include "clocked_watch.hpp"

namespace quillmere::test {
namespace {

/// The watch opens links with a program that writes them down.
class NoticeAction : public testing::Test {
protected:
    NoticeAction()
    {
        person.now = moment + 2'000;
        writeText(opener, "#!/bin/sh\necho \"$@\" >> '" + opened.string() + "'\n");
        std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    }

    Person person;
    FakeNotifier notifier;
    TemporaryDirectory directory;
    const std::filesystem::path opener = directory.path() / "opener";
    const std::filesystem::path opened = directory.path() / "opened";

    notices::WatchSettings settings() const { return {.opener = opener.string()}; }
    std::string openedLinks() const { return std::filesystem::exists(opened) ? textOf(opened) : ""; }
    /// Until the opener has ended.
    static void handle(ClockedWatch& watch)
    {
        watch.round();
        EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); })) << watch.said();
    }
};

TEST_F(NoticeAction, opensThePresentScreen)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier, settings());
    watch.untilIdle();
    notifier.choosesAction(1, "default");
    handle(watch);
    person.has(stateIn(WorkflowState::idle));
    notifier.choosesAction(1, "default");
    handle(watch);
    EXPECT_EQ(openedLinks(), "quillmere://open/session-review\nquillmere://open/idle\n");
}

TEST_F(NoticeAction, extendsTheBreak)
{
    person.now = moment + 305;
    person.has(stateIn(WorkflowState::breaking));
    ClockedWatch watch(person, notifier, settings());
    watch.untilIdle();
    notifier.choosesAction(1, "extend");
    handle(watch);
    EXPECT_EQ(person.state().breakExtensionSeconds, 300);
    EXPECT_FALSE(person.state().breakEndNotifiedAt);
    EXPECT_EQ(openedLinks(), "");
}

TEST_F(NoticeAction, thatTheEngineRefusesIsReported)
{
    person.has(stateIn(WorkflowState::breaking));
    ClockedWatch watch(person, notifier, settings());
    watch.untilIdle();
    person.has(stateIn(WorkflowState::idle));
    notifier.choosesAction(1, "extend");
    handle(watch);
    EXPECT_EQ(watch.said(),
              "The break is not longer: This action is not available in the current workflow state.\n");
}

TEST_F(NoticeAction, onANoticeOfAnotherProgramIsIgnored)
{
    person.has(stateIn(WorkflowState::breaking));
    ClockedWatch watch(person, notifier, settings());
    watch.untilIdle();
    notifier.choosesAction(99, "extend");
    notifier.choosesAction(99, "default");
    notifier.choosesAction(1, "unknown");
    handle(watch);
    EXPECT_EQ(openedLinks(), "");
    EXPECT_EQ(person.state().breakExtensionSeconds, 0);
}

TEST_F(NoticeAction, onANoticeOfAnotherServiceIsIgnored)
{
    person.has(stateIn(WorkflowState::breaking));
    ClockedWatch watch(person, notifier, settings());
    watch.untilIdle();
    notifier.ends();
    notifier.becomesReady("bus:1.2");
    watch.untilIdle();
    person.has(asking(person.state(), 1, "May I?"));
    person.now = person.now + 2;
    watch.round();
    watch.round();
    // The new service counts the notices of other programs from one again.
    notifier.choosesAction(1, "extend");
    handle(watch);
    EXPECT_EQ(person.state().breakExtensionSeconds, 0);
}

TEST_F(NoticeAction, isHandledByOneOfTwoWatches)
{
    FakeNotifier other;
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch first(person, notifier, settings());
    first.untilIdle();
    // The second watch knows the notice and is ready, but does not lead.
    ClockedWatch second(person, other, settings());
    second.untilIdle();
    second.untilIdle();
    // The service sends its signals to both.
    notifier.choosesAction(1, "default");
    other.choosesAction(1, "default");
    handle(first);
    handle(second);
    EXPECT_EQ(countOf("quillmere://", openedLinks()), 1U);
}

TEST_F(NoticeAction, onANoticeOfAnEarlierWatchIsHandled)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch(person, notifier, settings()).untilIdle();
    FakeNotifier next;
    ClockedWatch watch(person, next, settings());
    watch.untilIdle();
    watch.untilIdle();
    next.choosesAction(1, "default");
    handle(watch);
    EXPECT_EQ(openedLinks(), "quillmere://open/session-review\n");
}

TEST_F(NoticeAction, thatCannotOpenAnythingIsReported)
{
    person.has(stateIn(WorkflowState::focusing));
    ClockedWatch watch(person, notifier, {.opener = "/nowhere/opener"});
    watch.untilIdle();
    notifier.choosesAction(1, "default");
    watch.untilIdle();
    EXPECT_EQ(watch.said(), "Opening the screen failed: No such file or directory.\n");
}

}  // namespace
}  // namespace quillmere::test
