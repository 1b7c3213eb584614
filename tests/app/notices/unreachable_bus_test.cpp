// Bus and service may be absent, slow or broken; time passes all the same.
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include "desktop.hpp"

namespace quillmere::test {
namespace {

/// Accepts connections and never answers.
base::Descriptor silentBus(const std::filesystem::path& path)
{
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    base::Descriptor bus(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(::bind(bus.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(bus.get(), 10), 0);
    return bus;
}

class UnreachableBus : public Desktop {
protected:
    /// Whether the watch records what comes about, twice in a row.
    void expectTimeToPass()
    {
        const QuillmereState focus = focusOver(90);
        person.has(focus);
        EXPECT_TRUE(eventually([&] { return person.state().workflowState == WorkflowState::sessionReview; }));
        EXPECT_EQ(*person.state().currentSession()->endedAt, focus.currentSession()->startedAt + 1'500);
        const QuillmereState rest = breakOver(30);
        person.has(rest);
        EXPECT_TRUE(eventually([&] { return person.state().breakEndNotifiedAt.has_value(); }));
        EXPECT_EQ(*person.state().breakEndNotifiedAt, *rest.breakStartedAt + 300);
    }
};

TEST_F(UnreachableBus, doesNotKeepTimeFromPassingWhenThereIsNone)
{
    Process watch = watching();
    expectTimeToPass();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: Failed to open bus (No such file or directory).\n");
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
}

TEST_F(UnreachableBus, doesNotKeepTimeFromPassingWhenItAcceptsAndNeverAnswers)
{
    const base::Descriptor bus = silentBus(socket());
    Process watch = watching();
    expectTimeToPass();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: the session bus does not answer.\n");
    expectTimeToPass();
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
    EXPECT_EQ(countOf("\n", said()), 1U);
}

TEST_F(UnreachableBus, doesNotKeepTheProgramFromEnding)
{
    const base::Descriptor bus = silentBus(socket());
    person.has(focusOver(90));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !printed().empty(); }));
    EXPECT_EQ(watch.endBy(SIGINT), 0);
}

TEST_F(UnreachableBus, isFoundWhenItComesUpLater)
{
    person.has(focusOver(90));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    hasBus();
    // That there is no service yet is another trouble, and said too.
    EXPECT_TRUE(eventually([&] { return countOf("org.freedesktop.Notifications", said()) == 1; })) << said();
    hasService();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_TRUE(eventually([&] { return said().ends_with("Notices can be given again.\n"); })) << said();
    EXPECT_EQ(countOf("No such file or directory", said()), 1U);
}

TEST_F(UnreachableBus, isFoundAgainWhenItWasLost)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    losesBus();
    person.has(breakOver(5));
    EXPECT_TRUE(eventually([&] { return person.state().breakEndNotifiedAt.has_value(); }));
    hasBus();
    hasService();
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said();
    EXPECT_EQ(notices()[1]["summary"], "The break is over");
}

TEST_F(UnreachableBus, leadsToTheNoticeThatStillStands)
{
    person.has(asking(focusOver(90), 1, "May I?"));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    ASSERT_EQ(person.types({"review", "--completion", "Yes", "--next-outcome", "More"}).code, ExitCode::done);
    hasBus();
    hasService();
    EXPECT_TRUE(eventually([&] { return !notices().empty(); })) << said();
    EXPECT_EQ(notices()[0]["body"], "May I?");
}

TEST_F(UnreachableBus, leavesTheNoticeToTheNextWatch)
{
    person.has(focusOver(90));
    watchesOnce();
    EXPECT_EQ(said(), "Notices cannot be given now: Failed to open bus (No such file or directory).\n");
    EXPECT_EQ(recordCount(), 0U);
    hasBus();
    hasService();
    watchesOnce();
    EXPECT_TRUE(hasNotices(1));
    EXPECT_EQ(recordCount(), 1U);
}

TEST_F(UnreachableBus, isNoDifferentFromAServiceThatNeverAnswers)
{
    hasBus();
    hasService({.behaviour = "mute"});
    Process watch = watching();
    expectTimeToPass();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: the notification service does not answer.\n");
    EXPECT_TRUE(hasNotices(0));
    hasService();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    EXPECT_EQ(notices()[0]["summary"], "The break is over");
}

TEST_F(UnreachableBus, doesNotLeadToANoticeTwiceWhenTheServiceKeepsItsAnswerToItself)
{
    hasBus();
    hasService({.behaviour = "numb"});
    person.has(focusOver(90));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return hasNotices(1); })) << said();
    expectTimeToPass();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: the notification service does not answer.\n");
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
    // The service has it, so it may be on the screen.
    hasService();
    person.has(focusOver(90));
    watchesOnce();
    EXPECT_EQ(countOf("Focus is over", textIn("log")), 1U);
}

TEST_F(UnreachableBus, doesNotLeadToANoticeTwiceWhenTheAnswerCannotBeRead)
{
    hasBus();
    hasService({.behaviour = "garbled"});
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    watchesOnce();
    EXPECT_EQ(said(),
              "Notices cannot be given now: the answer of the notification service cannot be read.\n");
    EXPECT_EQ(recordCount(), 1U);
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(UnreachableBus, leadsToTheNoticeAtTheNextServiceWhenOneEndsInsteadOfGivingIt)
{
    hasBus();
    hasService({.behaviour = "frail"});
    person.has(asking(stateIn(WorkflowState::idle), 1, "May I?"));
    const Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: the notification service has gone.\n");
    hasService();
    EXPECT_TRUE(eventually([&] { return hasNotices(2); })) << said();
}

TEST_F(UnreachableBus, leavesTheNoticeToTheNextWatchWhenTheServiceFallsSilentBeforeIt)
{
    hasBus();
    hasService({.behaviour = "tired"});
    person.has(focusOver(90));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !said().empty(); }));
    EXPECT_EQ(said(), "Notices cannot be given now: the notification service does not answer.\n");
    EXPECT_EQ(watch.endBy(SIGTERM), 0);
    hasService();
    watchesOnce();
    EXPECT_TRUE(hasNotices(1));
}

TEST_F(UnreachableBus, doesNotKeepTheNotifierWhenTheWatchIsKilled)
{
    const base::Descriptor bus = silentBus(socket());
    person.has(focusOver(90));
    Process watch = watching();
    std::string notifier;
    EXPECT_TRUE(eventually([&] { return !(notifier = childrenOf(watch.number())).empty(); }));
    const std::filesystem::path process = "/proc/" + notifier;
    ASSERT_TRUE(std::filesystem::exists(process));
    // It has begun to wait for the bus.
    EXPECT_TRUE(eventually([&] {
        std::ifstream status(process / "stat");
        return std::string(std::istreambuf_iterator<char>(status), {}).find("(quillmere-notif) S") !=
               std::string::npos;
    }));
    watch.endBy(SIGKILL);
    EXPECT_TRUE(eventually([&] {
        // Where nobody takes leave of the dead, they stay as what they are.
        std::ifstream status(process / "stat");
        const std::string line(std::istreambuf_iterator<char>(status), {});
        return line.empty() || line.find(") Z") != std::string::npos;
    }));
}

TEST_F(UnreachableBus, isSoToAWatchWithoutItsNotifier)
{
    // A program that was moved away from what belongs to it.
    std::filesystem::copy(QUILLMERE_PROGRAM, file("quillmere"));
    person.has(focusOver(90));
    Process watch(
        {.words = {"/bin/sh", "-c",
                   "exec '" + file("quillmere").string() + "' --directory '" + person.directory().string() +
                       "' watch --once >/dev/null 2>'" + file("watch.err").string() + "'"},
         .variables = {"XDG_STATE_HOME=" + person.stateHome().string()}});
    EXPECT_EQ(watch.wait(), 0);
    EXPECT_TRUE(said().starts_with("Notices cannot be given now: ")) << said();
    EXPECT_TRUE(said().ends_with("quillmere-notifier: No such file or directory.\n")) << said();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

}  // namespace
}  // namespace quillmere::test
