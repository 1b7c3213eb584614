// Bus and service may be absent, slow or broken; time passes all the same.
#include "notices/notifier_process.hpp"

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "clocked_watch.hpp"
#include "desktop.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

/// Accepts connections and never answers.
Descriptor silentBus(const std::filesystem::path& path)
{
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    Descriptor bus(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(::bind(bus.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(bus.get(), 10), 0);
    return bus;
}

class UnreachableBus : public Desktop {
protected:
    /// Expects that a real watch records two events in a row.
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
    EXPECT_EQ(endBy(watch, SIGTERM), 0);
}

TEST_F(UnreachableBus, doesNotKeepTheProgramFromEnding)
{
    const Descriptor bus = silentBus(socket());
    person.has(focusOver(90));
    Process watch = watching();
    EXPECT_TRUE(eventually([&] { return !printed().empty(); }));
    EXPECT_EQ(endBy(watch, SIGINT), 0);
}

TEST_F(UnreachableBus, doesNotKeepTheNotifierAliveWhenTheWatchIsKilled)
{
    const Descriptor bus = silentBus(socket());
    person.has(focusOver(90));
    Process watch = watching();
    std::string notifier;
    EXPECT_TRUE(eventually([&] { return !(notifier = childrenOf(watch.number())).empty(); }));
    const std::filesystem::path process = "/proc/" + notifier;
    ASSERT_TRUE(std::filesystem::exists(process));
    // It waits for the bus.
    EXPECT_TRUE(eventually([&] {
        std::ifstream status(process / "stat");
        return std::string(std::istreambuf_iterator<char>(status), {}).find("(quillmere-notif) S") !=
               std::string::npos;
    }));
    endBy(watch, SIGKILL);
    EXPECT_TRUE(eventually([&] {
        // Where no process reaps orphans, it stays as a zombie.
        std::ifstream status(process / "stat");
        const std::string line(std::istreambuf_iterator<char>(status), {});
        return line.empty() || line.find(") Z") != std::string::npos;
    }));
}

TEST_F(UnreachableBus, isReportedByAWatchThatDoesNotFindItsNotifier)
{
    // The program alone, without its notifier beside it.
    std::filesystem::copy(QUILLMERE_PROGRAM, file("quillmere"));
    person.has(focusOver(90));
    ProcessOptions options = watchOptions({"--once"});
    options.words.front() = file("quillmere").string();
    EXPECT_EQ(run(options).code, 0);
    EXPECT_TRUE(said().starts_with("Notices cannot be given now: ")) << said();
    EXPECT_TRUE(said().ends_with("quillmere-notifier: No such file or directory.\n")) << said();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

/// A real notifier on a watch whose clock the test moves: what takes minutes takes none here.
class UnreachableBusOnAClock : public Desktop {
protected:
    const EnvironmentVariable address{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + socket().string()};
    notices::NotifierProcess notifier{std::filesystem::path(QUILLMERE_PROGRAM).parent_path() /
                                      "quillmere-notifier"};
    ClockedWatch watch{person, notifier};

    void pass(double elapsed) { person.now = person.now + elapsed; }
};

TEST_F(UnreachableBusOnAClock, doesNotKeepTimeFromPassingWhenItAcceptsAndNeverAnswers)
{
    const Descriptor bus = silentBus(socket());
    person.has(focusOver(90));
    watch.round();
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_TRUE(notifier.isRunning());
    person.has(breakOver(30));
    pass(5);
    watch.round();
    EXPECT_TRUE(person.state().breakEndNotifiedAt.has_value());
    const std::string message = "Notices cannot be given now: the session bus does not answer.\n";
    EXPECT_EQ(watch.said(), message);
    // And again, which is not reported again.
    pass(60);
    watch.round();
    EXPECT_TRUE(notifier.isRunning());
    pass(5);
    watch.round();
    EXPECT_FALSE(notifier.isRunning());
    EXPECT_EQ(watch.said(), message);
}

TEST_F(UnreachableBusOnAClock, isFoundWhenItComesUpLater)
{
    person.has(focusOver(90));
    EXPECT_TRUE(watch.roundsUntil([&] { return !watch.said().empty(); }));
    EXPECT_EQ(countOf("No such file or directory", watch.said()), 1U) << watch.said();
    hasBus();
    pass(2);
    // A missing service is another error, and reported too.
    EXPECT_TRUE(watch.roundsUntil([&] {
        return countOf("org.freedesktop.Notifications", watch.said()) == 1;
    })) << watch.said();
    hasService();
    pass(4);
    EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); })) << watch.said();
    EXPECT_TRUE(hasNotices(1));
    EXPECT_TRUE(watch.said().ends_with("Notices can be given again.\n")) << watch.said();
}

TEST_F(UnreachableBusOnAClock, isFoundAgainWhenItWasLost)
{
    hasBus();
    hasService();
    person.has(focusOver(90));
    EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); })) << watch.said();
    losesBus();
    EXPECT_TRUE(watch.roundsUntil([&] { return !notifier.isRunning(); }));
    hasBus();
    hasService();
    person.has(breakOver(5));
    pass(5);
    EXPECT_TRUE(watch.roundsUntil([&] { return watch.isIdle(); })) << watch.said();
    ASSERT_TRUE(hasNotices(2));
    EXPECT_EQ(notices()[1]["summary"], "The break is over");
}

}  // namespace
}  // namespace quillmere::test
