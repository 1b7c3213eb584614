// The notifier program on a real bus, before a service that writes down its calls.
#include "notices/notifier_process.hpp"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop.hpp"
#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;
using base::Moment;
using nlohmann::json;
using notices::NoticeRequest;
using notices::NotifierMessage;
using notices::NotifierProcess;

/// The notifier beside the program under test.
std::filesystem::path builtNotifier()
{
    return std::filesystem::path(QUILLMERE_PROGRAM).parent_path() / "quillmere-notifier";
}

const NoticeRequest simpleRequest{
    .replaces = 0, .heading = "Focus is over", .body = "Five headings", .urgency = 1, .actions = {}};

class NotifierOnTheBus : public Desktop {
protected:
    const EnvironmentVariable address{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + socket().string()};
    const base::Moment now{1h};
    NotifierProcess notifier{builtNotifier(), {.capabilities = 300ms, .notice = 300ms}};

    /// The next message that the notifier sends.
    NotifierMessage message()
    {
        EXPECT_TRUE(eventually([&] {
            for (const NotifierMessage& message : notifier.takeMessages(now)) {
                unread_.push_back(message);
            }
            return !unread_.empty();
        }));
        if (unread_.empty()) {
            return {.kind = notices::NotifierMessageKind::ended, .text = "nothing came"};
        }
        const NotifierMessage first = unread_.front();
        unread_.erase(unread_.begin());
        return first;
    }

    /// Starts the notifier; returns the name of the service.
    std::string starts()
    {
        notifier.start(now);
        const NotifierMessage first = message();
        EXPECT_EQ(first.kind, notices::NotifierMessageKind::ready) << first.text;
        return first.text;
    }

    NotifierMessage answerTo(const NoticeRequest& request)
    {
        notifier.send(request, now);
        return message();
    }

private:
    std::vector<NotifierMessage> unread_;
};

TEST_F(NotifierOnTheBus, givesTheNoticeThatIsRequested)
{
    hasBus();
    hasService();
    starts();
    const NotifierMessage answer = answerTo({.replaces = 0,
                                             .heading = "The break is over",
                                             .body = "Five headings",
                                             .urgency = 2,
                                             .actions = {"default", "Open"},
                                             .sound = "bell"});
    EXPECT_EQ(answer.kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(answer.number, 1U);
    EXPECT_EQ(notices(), (std::vector<json>{{{"name", "Quillmere"},
                                             {"replaces", 0},
                                             {"icon", ""},
                                             {"summary", "The break is over"},
                                             {"body", "Five headings"},
                                             {"actions", {"default", "Open"}},
                                             {"urgency", 2},
                                             {"timeout", -1},
                                             {"sound", "bell"}}}));
}

TEST_F(NotifierOnTheBus, asksForSilenceWithoutASound)
{
    hasBus();
    hasService();
    starts();
    EXPECT_EQ(answerTo(simpleRequest).kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(notices()[0]["sound"], "suppressed");
}

TEST_F(NotifierOnTheBus, playsASoundItselfWhereTheServiceHasNone)
{
    const EnvironmentVariable library("LD_LIBRARY_PATH", WRITTEN_SOUNDS);
    const EnvironmentVariable sounds("QUILLMERE_SOUNDS", file("sounds").string());
    hasBus();
    hasService({.capabilities = {"body"}});
    starts();
    NoticeRequest request = simpleRequest;
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    request.sound = "complete";
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    EXPECT_TRUE(eventually([&] { return textIn("sounds") == "complete\n"; })) << textIn("sounds");
}

TEST_F(NotifierOnTheBus, leavesTheSoundToTheServiceThatHasOne)
{
    const EnvironmentVariable library("LD_LIBRARY_PATH", WRITTEN_SOUNDS);
    const EnvironmentVariable sounds("QUILLMERE_SOUNDS", file("sounds").string());
    hasBus();
    hasService();
    starts();
    NoticeRequest request = simpleRequest;
    request.sound = "complete";
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    // The notifier answers the second request after it has done all for the first.
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(textIn("sounds"), "");
}

TEST_F(NotifierOnTheBus, replacesANotice)
{
    hasBus();
    hasService();
    starts();
    NoticeRequest request = simpleRequest;
    request.replaces = answerTo(request).number;
    EXPECT_EQ(answerTo(request).number, request.replaces);
    EXPECT_EQ(notices()[1]["replaces"], request.replaces);
}

TEST_F(NotifierOnTheBus, escapesMarkupWhereTheServiceReadsIt)
{
    hasBus();
    hasService();
    starts();
    NoticeRequest request = simpleRequest;
    request.body = "<b>bold</b> & \"quoted\"";
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(notices()[0]["body"], "&lt;b&gt;bold&lt;/b&gt; &amp; &quot;quoted&quot;");
}

TEST_F(NotifierOnTheBus, leavesMarkupAndActionsOutWhereTheServiceHasNone)
{
    hasBus();
    hasService({.capabilities = {"body"}});
    starts();
    NoticeRequest request = simpleRequest;
    request.body = "<b>bold</b>";
    request.actions = {"default", "Open"};
    EXPECT_EQ(answerTo(request).kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(notices()[0]["body"], "<b>bold</b>");
    EXPECT_EQ(notices()[0]["actions"], json::array());
}

TEST_F(NotifierOnTheBus, reportsChoicesAndClosedNotices)
{
    hasBus();
    hasService();
    starts();
    service().signals("action 7 extend");
    const NotifierMessage action = message();
    EXPECT_EQ(action.kind, notices::NotifierMessageKind::action);
    EXPECT_EQ(action.number, 7U);
    EXPECT_EQ(action.text, "extend");
    service().signals("closed 7");
    const NotifierMessage closed = message();
    EXPECT_EQ(closed.kind, notices::NotifierMessageKind::closed);
    EXPECT_EQ(closed.number, 7U);
}

TEST_F(NotifierOnTheBus, endsWhenAnotherServiceTakesOverThoughTheFirstIsStillThere)
{
    hasBus();
    hasService();
    const std::string first = starts();
    service().signals("release");
    const NotificationService other("unix:path=" + socket().string(), file("other-log"), {});
    const NotifierMessage last = message();
    EXPECT_EQ(last.kind, notices::NotifierMessageKind::ended);
    EXPECT_EQ(last.text, "");
    EXPECT_NE(starts(), first);
    EXPECT_EQ(answerTo(simpleRequest).kind, notices::NotifierMessageKind::given);
    EXPECT_EQ(countOf("Focus is over", textIn("other-log")), 1U);
}

TEST_F(NotifierOnTheBus, namesTheErrorOfANoticeThatIsRefused)
{
    hasBus();
    hasService({.behaviour = "picky"});
    starts();
    const NotifierMessage answer = answerTo(simpleRequest);
    EXPECT_EQ(answer.kind, notices::NotifierMessageKind::failed);
    EXPECT_EQ(answer.text, "no, for the 1. time");
    EXPECT_EQ(answer.error, "org.example.Refused");
}

TEST_F(NotifierOnTheBus, endsWhereThereIsNoBus)
{
    notifier.start(now);
    const NotifierMessage last = message();
    EXPECT_EQ(last.kind, notices::NotifierMessageKind::ended);
    EXPECT_EQ(last.text, "Failed to open bus (No such file or directory)");
    EXPECT_FALSE(notifier.isRunning());
}

TEST_F(NotifierOnTheBus, endsWhereTheServiceNeverAnswers)
{
    hasBus();
    hasService({.behaviour = "mute"});
    notifier.start(now);
    const NotifierMessage last = message();
    EXPECT_EQ(last.kind, notices::NotifierMessageKind::ended);
    EXPECT_EQ(last.text, "the notification service does not answer");
}

TEST_F(NotifierOnTheBus, endsWhenTheServiceFallsSilentBeforeANotice)
{
    hasBus();
    hasService({.behaviour = "tired"});
    starts();
    const NotifierMessage last = answerTo(simpleRequest);
    EXPECT_EQ(last.kind, notices::NotifierMessageKind::ended);
    EXPECT_EQ(last.text, "the notification service does not answer");
}

TEST_F(NotifierOnTheBus, tellsANoticeWithoutAnAnswerFromOneThatWasNotGiven)
{
    struct Example {
        std::string behaviour;
        notices::NotifierMessageKind kind;
        std::string text;
    };
    const Example examples[] = {
        {"numb", notices::NotifierMessageKind::unanswered, "the notification service does not answer"},
        {"garbled", notices::NotifierMessageKind::unanswered,
         "the answer of the notification service cannot be read"},
        {"frail", notices::NotifierMessageKind::failed, "the notification service has gone"},
    };
    hasBus();
    for (const Example& example : examples) {
        hasService({.behaviour = example.behaviour});
        starts();
        const NotifierMessage answer = answerTo(simpleRequest);
        EXPECT_EQ(answer.kind, example.kind) << example.behaviour;
        EXPECT_EQ(answer.text, example.text) << example.behaviour;
        hasService();
        EXPECT_EQ(message().kind, notices::NotifierMessageKind::ended) << example.behaviour;
    }
}

/// A notifier that is a shell script.
class ScriptedNotifier : public testing::Test {
protected:
    TemporaryDirectory directory;
    const base::Moment now{1h};

    std::filesystem::path program(const std::string& script) const
    {
        const std::filesystem::path path = directory.path() / "notifier";
        writeText(path, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    /// The first messages that come while the clock stands.
    std::vector<NotifierMessage> messagesOf(NotifierProcess& notifier) const
    {
        std::vector<NotifierMessage> messages;
        EXPECT_TRUE(eventually([&] { return !(messages = notifier.takeMessages(now)).empty(); }));
        return messages;
    }
};

TEST_F(ScriptedNotifier, isKilledWhenItDoesNotGetReadyInTime)
{
    NotifierProcess notifier(program("exec sleep 600"));
    notifier.start(now);
    EXPECT_TRUE(notifier.takeMessages(now + 4'999ms).empty());
    EXPECT_TRUE(notifier.isRunning());
    const auto messages = notifier.takeMessages(now + 5s);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].kind, notices::NotifierMessageKind::ended);
    EXPECT_EQ(messages[0].text, "the session bus does not answer");
    EXPECT_FALSE(notifier.isRunning());
    EXPECT_EQ(notifier.descriptor(), -1);
}

TEST_F(ScriptedNotifier, isKilledWhenItLeavesARequestUnanswered)
{
    NotifierProcess notifier(program(
        "echo '{\"kind\":\"ready\",\"number\":0,\"text\":\"bus:1.1\",\"error\":\"\"}'; exec sleep 600"));
    notifier.start(now);
    EXPECT_EQ(messagesOf(notifier)[0].kind, notices::NotifierMessageKind::ready);
    EXPECT_TRUE(notifier.takeMessages(now + 1h).empty());
    notifier.send(simpleRequest, now);
    EXPECT_TRUE(notifier.takeMessages(now + 14s).empty());
    const auto messages = notifier.takeMessages(now + 15s);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].text, "the notification service does not answer");
}

TEST_F(ScriptedNotifier, thatEndsWithoutAMessageIsReported)
{
    NotifierProcess notifier(program("exit 0"));
    notifier.start(now);
    EXPECT_EQ(messagesOf(notifier)[0].text, "the notifier has stopped working");
}

TEST_F(ScriptedNotifier, thatSendsNoMessagesOfThisProtocolIsOfAnotherVersion)
{
    NotifierProcess notifier(program("echo hello; exec sleep 600"));
    notifier.start(now);
    EXPECT_EQ(messagesOf(notifier)[0].text, "the notifier is of another version");
    EXPECT_FALSE(notifier.isRunning());
}

}  // namespace
}  // namespace quillmere::test
