// quillmere-notifier: gives the notices of `quillmere watch` on the session bus (Desktop Notifications
// 1.2 of freedesktop.org). It may wait for the bus as long as it likes: `watch` never waits for it, and
// kills it when it takes too long. Why it is a program of its own stands in notifier.hpp.
#include "notices/notifier_protocol.hpp"

#include <sdbus-c++/sdbus-c++.h>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <memory>

namespace quillmere::app {
namespace {

using namespace std::chrono_literals;

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* object = "/org/freedesktop/Notifications";
constexpr const char* interface = "org.freedesktop.Notifications";

constexpr auto patienceForCapabilities = 3s;
// A service may be busy, and a notice that it has taken must not be asked for again.
constexpr auto patienceForNotify = 25s;

/// Goes to `watch`; if that is gone, reading tells.
void say(const NotifierWord& word)
{
    const std::string line = protocolLine(word);
    ::send(STDOUT_FILENO, line.data(), line.size(), MSG_NOSIGNAL);
}

/// The text as the markup of notices spells it.
std::string escaped(const std::string& text)
{
    std::string markup;
    for (const char character : text) {
        switch (character) {
            case '&': markup += "&amp;"; break;
            case '<': markup += "&lt;"; break;
            case '>': markup += "&gt;"; break;
            case '"': markup += "&quot;"; break;
            case '\'': markup += "&apos;"; break;
            default: markup += character;
        }
    }
    return markup;
}

/// Whether a call failed because nobody answered in time: then what it asked for may have been done.
bool isTimeout(const sdbus::Error& error)
{
    constexpr std::array<std::string_view, 3> names = {
        "org.freedesktop.DBus.Error.NoReply", "org.freedesktop.DBus.Error.Timeout", "System.Error.ETIMEDOUT"};
    return std::find(names.begin(), names.end(), error.getName()) != names.end();
}

/// The notification service on the session bus.
class Service {
public:
    /// Connects to the bus; throws sdbus::Error.
    Service()
        : bus_(sdbus::createSessionBusConnection()),
          notifications_(sdbus::createProxy(*bus_, service, object))
    {
        notifications_->uponSignal("ActionInvoked")
            .onInterface(interface)
            .call([](std::uint32_t number, const std::string& key) {
                say({.kind = NotifierWordKind::action, .number = number, .text = key});
            });
        notifications_->uponSignal("NotificationClosed")
            .onInterface(interface)
            .call([](std::uint32_t number, std::uint32_t) {
                say({.kind = NotifierWordKind::closed, .number = number});
            });
        notifications_->finishRegistration();
    }

    void give(const NoticeRequest& notice)
    {
        // Asked each time: another service may have taken the place of the last. And one that does not
        // answer this has not been given the notice, which can be tried again.
        std::vector<std::string> capabilities;
        try {
            notifications_->callMethod("GetCapabilities")
                .onInterface(interface)
                .withTimeout(patienceForCapabilities)
                .storeResultsTo(capabilities);
        } catch (const sdbus::Error& error) {
            say({.kind = NotifierWordKind::failed, .text = reason(error)});
            return;
        }
        try {
            say({.kind = NotifierWordKind::given, .number = notify(notice, capabilities)});
        } catch (const sdbus::Error& error) {
            say({.kind = isTimeout(error) ? NotifierWordKind::unanswered : NotifierWordKind::failed,
                 .text = reason(error)});
        }
    }

    /// Hands on what the bus has brought.
    void process()
    {
        while (bus_->processPendingRequest()) {
        }
    }

    sdbus::IConnection::PollData pollData() const { return bus_->getEventLoopPollData(); }

private:
    static std::string reason(const sdbus::Error& error)
    {
        return isTimeout(error) ? "the notification service does not answer" : error.getMessage();
    }

    std::uint32_t notify(const NoticeRequest& notice, const std::vector<std::string>& capabilities)
    {
        const auto can = [&](const char* what) {
            return std::find(capabilities.begin(), capabilities.end(), what) != capabilities.end();
        };
        const std::map<std::string, sdbus::Variant> hints = {{"urgency", sdbus::Variant(notice.urgency)},
                                                             {"desktop-entry", sdbus::Variant("quillmere")}};
        constexpr std::int32_t asLongAsTheServiceLikes = -1;
        std::uint32_t number = 0;
        notifications_->callMethod("Notify")
            .onInterface(interface)
            .withTimeout(patienceForNotify)
            .withArguments(std::string("Quillmere"), notice.replaces, std::string(), notice.heading,
                           can("body-markup") ? escaped(notice.body) : notice.body,
                           can("actions") ? notice.actions : std::vector<std::string>(), hints,
                           asLongAsTheServiceLikes)
            .storeResultsTo(number);
        return number;
    }

    std::unique_ptr<sdbus::IConnection> bus_;
    std::unique_ptr<sdbus::IProxy> notifications_;
};

/// Adds what `watch` says; false when it says no more.
bool receive(std::string& arrived)
{
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count > 0) {
        arrived.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return count > 0 || (count == -1 && errno == EINTR);
}

/// Until `watch` is gone.
void serve()
{
    Service notifications;
    say({.kind = NotifierWordKind::connected});
    std::string arrived;
    while (true) {
        notifications.process();
        const sdbus::IConnection::PollData bus = notifications.pollData();
        std::array<pollfd, 2> files = {pollfd{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0},
                                       pollfd{.fd = bus.fd, .events = bus.events, .revents = 0}};
        ::poll(files.data(), files.size(), bus.getPollTimeout());
        if (files[0].revents != 0 && !receive(arrived)) {
            return;
        }
        while (const auto notice = takeRecord<NoticeRequest>(arrived)) {
            notifications.give(*notice);
        }
    }
}

}  // namespace
}  // namespace quillmere::app

int main()
{
    using namespace quillmere::app;
    try {
        serve();
        return 0;
    } catch (const sdbus::Error& error) {
        say({.kind = NotifierWordKind::ended, .text = error.getMessage()});
    } catch (const std::exception& error) {
        say({.kind = NotifierWordKind::ended, .text = error.what()});
    }
    return 1;
}
