// quillmere-notifier: gives the notices of `quillmere watch` on the session bus (Desktop Notifications
// 1.2 of freedesktop.org). It may wait for the bus as long as it likes: `watch` never waits for it, and
// kills it when it takes too long. It is started with the process number of that `watch`. Why it is a
// program of its own stands in notifier.hpp.
#include "notices/notifier_protocol.hpp"

#include <sdbus-c++/sdbus-c++.h>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::notices {
namespace {

using namespace std::chrono_literals;

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* object = "/org/freedesktop/Notifications";
constexpr const char* interface = "org.freedesktop.Notifications";
constexpr const char* busInterface = "org.freedesktop.DBus";  // also the name of the bus itself

constexpr auto patienceForBus = 1s;
constexpr auto patienceForCapabilities = 3s;
// A service may be busy, and a notice that it has taken must not be asked for again.
constexpr auto patienceForNotify = 10s;

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

std::string reason(const sdbus::Error& error)
{
    return isTimeout(error) ? "the notification service does not answer" : error.getMessage();
}

/// The notification service on the session bus: the one that answers first. One that takes its place is
/// another, which knows nothing of the notices of this one.
class Service {
public:
    /// Connects to the bus and has the service answer, started by the bus if need be; throws sdbus::Error.
    Service()
        : bus_(sdbus::createSessionBusConnection()),
          ownerChanges_(bus_->addMatch(ownerChanged,
                                       [this](sdbus::Message& change) {
                                           std::string name;
                                           std::string before;
                                           change >> name >> before >> owner_;
                                       })),
          name_(nameOfService()),
          owner_(name_),
          // By its own name, so that nothing comes from another.
          notifications_(sdbus::createProxy(*bus_, name_, object))
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
        say({.kind = NotifierWordKind::ready, .text = identity()});
    }

    /// Throws sdbus::Error when the service does not even say what it can do: it has not been given the
    /// notice then, which can be tried again.
    void give(const NoticeRequest& notice)
    {
        const Capabilities capabilities = capabilitiesOf(*notifications_).first;
        sdbus::MethodReply reply;
        try {
            reply = notifications_->callMethod(callFor(notice, capabilities), patienceForNotify);
        } catch (const sdbus::Error& error) {
            const bool mayHaveIt = isTimeout(error) && isPresent();
            say({.kind = mayHaveIt ? NotifierWordKind::unanswered : NotifierWordKind::failed,
                 .text = isTimeout(error) && !mayHaveIt ? "the notification service has gone" : reason(error),
                 .error = error.getName()});
            return;
        }
        try {
            std::uint32_t number = 0;
            reply >> number;
            say({.kind = NotifierWordKind::given, .number = number});
        } catch (const sdbus::Error&) {
            say({.kind = NotifierWordKind::unanswered,
                 .text = "the answer of the notification service cannot be read"});
        }
    }

    /// Hands on what the bus has brought; whether the service is still the one it was.
    bool process()
    {
        while (bus_->processPendingRequest()) {
        }
        return owner_ == name_;
    }

    sdbus::IConnection::PollData pollData() const { return bus_->getEventLoopPollData(); }

private:
    using Capabilities = std::vector<std::string>;

    static constexpr const char* ownerChanged =
        "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
        "member='NameOwnerChanged',arg0='org.freedesktop.Notifications'";

    /// What it can do, and who says so.
    static std::pair<Capabilities, std::string> capabilitiesOf(sdbus::IProxy& notifications)
    {
        Capabilities capabilities;
        auto reply = notifications.callMethod(notifications.createMethodCall(interface, "GetCapabilities"),
                                              patienceForCapabilities);
        reply >> capabilities;
        return {capabilities, reply.getSender()};
    }

    std::string nameOfService() const
    {
        return capabilitiesOf(*sdbus::createProxy(*bus_, service, object)).second;
    }

    /// Names on a bus are given once, but the next bus gives them again.
    std::string identity() const
    {
        std::string bus;
        daemon()
            ->callMethod("GetId")
            .onInterface(busInterface)
            .withTimeout(patienceForBus)
            .storeResultsTo(bus);
        return bus + name_;
    }

    bool isPresent() const
    {
        bool isThere = false;
        daemon()
            ->callMethod("NameHasOwner")
            .onInterface(busInterface)
            .withTimeout(patienceForBus)
            .withArguments(name_)
            .storeResultsTo(isThere);
        return isThere;
    }

    std::unique_ptr<sdbus::IProxy> daemon() const
    {
        return sdbus::createProxy(*bus_, busInterface, "/org/freedesktop/DBus");
    }

    sdbus::MethodCall callFor(const NoticeRequest& notice, const Capabilities& capabilities) const
    {
        const auto can = [&](const char* what) {
            return std::find(capabilities.begin(), capabilities.end(), what) != capabilities.end();
        };
        const std::map<std::string, sdbus::Variant> hints = {{"urgency", sdbus::Variant(notice.urgency)},
                                                             {"desktop-entry", sdbus::Variant("quillmere")}};
        constexpr std::int32_t asLongAsTheServiceLikes = -1;
        sdbus::MethodCall call = notifications_->createMethodCall(interface, "Notify");
        call << std::string("Quillmere") << notice.replaces << std::string() << notice.heading
             << (can("body-markup") ? escaped(notice.body) : notice.body)
             << (can("actions") ? notice.actions : std::vector<std::string>()) << hints
             << asLongAsTheServiceLikes;
        return call;
    }

    std::unique_ptr<sdbus::IConnection> bus_;
    sdbus::Slot ownerChanges_;
    std::string name_;
    std::string owner_;  ///< of the service's name, as far as has been heard
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

/// Until `watch` or the service is gone.
void serve()
{
    Service notifications;
    std::string arrived;
    while (notifications.process()) {
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
    say({.kind = NotifierWordKind::ended});
}

/// Has the system end this process with `watch`, whatever it waits for then; whether `watch` is there.
bool endWith(const std::string& watch)
{
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && std::to_string(::getppid()) == watch;
}

}  // namespace
}  // namespace quillmere::notices

int main(int count, char** arguments)
{
    using namespace quillmere::notices;
    if (count != 2 || !endWith(arguments[1])) {
        return 1;
    }
    try {
        serve();
        return 0;
    } catch (const sdbus::Error& error) {
        say({.kind = NotifierWordKind::ended, .text = reason(error), .error = error.getName()});
    } catch (const std::exception& error) {
        say({.kind = NotifierWordKind::ended, .text = error.what()});
    }
    return 1;
}
