// quillmere-notifier: gives the notices of `quillmere watch` on the session bus (Desktop Notifications 1.2 of
// freedesktop.org). Its arguments are the process number of that `watch`, and how many milliseconds to wait
// for the service's capabilities and for its answer to a notice. It may wait for the bus as long as it has
// to: `watch` never waits for it, and kills it when it takes too long. Why it is a separate program stands in
// notifier_process.hpp.
#include "base/system/wait.hpp"
#include "base/text/xml.hpp"
#include "notices/notifier_protocol.hpp"
#include "notices/sound_player.hpp"

#include <sdbus-c++/sdbus-c++.h>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <map>
#include <memory>
#include <optional>
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

/// The command line.
struct Arguments {
    std::string watch;  ///< a process number
    std::chrono::milliseconds patienceForCapabilities;
    std::chrono::milliseconds patienceForNotify;
};

/// Sends a message to `watch`. Errors are ignored: when `watch` is gone, `receive` notices it.
void send(const NotifierMessage& message)
{
    const std::string line = protocolLine(message);
    ::send(STDOUT_FILENO, line.data(), line.size(), MSG_NOSIGNAL);
}

/// Whether a call failed because no answer came in time. It may have been carried out all the same.
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

/// The notification service that owns the name on the session bus at the start. A later owner of the name is
/// another service and does not know these notices.
class Service {
public:
    /// Connects to the bus and calls the service, which the bus may start; throws sdbus::Error.
    explicit Service(const Arguments& arguments)
        : arguments_(arguments),
          bus_(sdbus::createSessionBusConnection()),
          ownerChanges_(bus_->addMatch(ownerChanged,
                                       [this](sdbus::Message& change) {
                                           std::string name;
                                           std::string before;
                                           change >> name >> before >> owner_;
                                       })),
          name_(nameOfService()),
          owner_(name_),
          // Addressed by its unique name, so that no message comes from another service.
          notifications_(sdbus::createProxy(*bus_, name_, object))
    {
        notifications_->uponSignal("ActionInvoked")
            .onInterface(interface)
            .call([](std::uint32_t number, const std::string& key) {
                send({.kind = NotifierMessageKind::action, .number = number, .text = key});
            });
        notifications_->uponSignal("NotificationClosed")
            .onInterface(interface)
            .call([](std::uint32_t number, std::uint32_t) {
                send({.kind = NotifierMessageKind::closed, .number = number});
            });
        notifications_->finishRegistration();
        send({.kind = NotifierMessageKind::ready, .text = identity()});
    }

    /// Throws sdbus::Error when the service does not answer for its capabilities. It has not been given the
    /// notice then.
    void give(const NoticeRequest& notice)
    {
        const Capabilities capabilities = capabilitiesOf(*notifications_).first;
        sdbus::MethodReply reply;
        try {
            reply = notifications_->callMethod(callFor(notice, capabilities), arguments_.patienceForNotify);
        } catch (const sdbus::Error& error) {
            const bool mayBeShown = isTimeout(error) && isPresent();
            send({.kind = mayBeShown ? NotifierMessageKind::unanswered : NotifierMessageKind::failed,
                  .text =
                      isTimeout(error) && !mayBeShown ? "the notification service has gone" : reason(error),
                  .error = error.getName()});
            return;
        }
        try {
            std::uint32_t number = 0;
            reply >> number;
            send({.kind = NotifierMessageKind::given, .number = number});
            if (!can(capabilities, "sound")) {
                sounds_.play(notice.sound);
            }
        } catch (const sdbus::Error&) {
            send({.kind = NotifierMessageKind::unanswered,
                  .text = "the answer of the notification service cannot be read"});
        }
    }

    /// Handles the messages of the bus; false once the service has lost its name.
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

    static bool can(const Capabilities& capabilities, const char* capability)
    {
        return std::find(capabilities.begin(), capabilities.end(), capability) != capabilities.end();
    }

    /// The capabilities of the service, and its unique name.
    std::pair<Capabilities, std::string> capabilitiesOf(sdbus::IProxy& notifications) const
    {
        Capabilities capabilities;
        auto reply = notifications.callMethod(notifications.createMethodCall(interface, "GetCapabilities"),
                                              arguments_.patienceForCapabilities);
        reply >> capabilities;
        return {capabilities, reply.getSender()};
    }

    std::string nameOfService() const
    {
        return capabilitiesOf(*sdbus::createProxy(*bus_, service, object)).second;
    }

    /// Unique across buses: a unique name occurs once on a bus, but again on the next bus.
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
        std::map<std::string, sdbus::Variant> hints = {{"urgency", sdbus::Variant(notice.urgency)},
                                                       {"desktop-entry", sdbus::Variant("quillmere")}};
        if (notice.sound.empty()) {
            hints.emplace("suppress-sound", sdbus::Variant(true));
        } else {
            hints.emplace("sound-name", sdbus::Variant(notice.sound));
        }
        constexpr std::int32_t defaultTimeout = -1;
        sdbus::MethodCall call = notifications_->createMethodCall(interface, "Notify");
        call << std::string("Quillmere") << notice.replaces << std::string() << notice.heading
             << (can(capabilities, "body-markup") ? base::escapedForXml(notice.body) : notice.body)
             << (can(capabilities, "actions") ? notice.actions : std::vector<std::string>()) << hints
             << defaultTimeout;
        return call;
    }

    Arguments arguments_;
    std::unique_ptr<sdbus::IConnection> bus_;
    sdbus::Slot ownerChanges_;
    std::string name_;
    std::string owner_;  ///< the present owner of the service's name
    std::unique_ptr<sdbus::IProxy> notifications_;
    SoundPlayer sounds_;
};

/// Appends what `watch` sent; false once `watch` has closed the socket.
bool receive(std::string& received)
{
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count > 0) {
        received.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return count > 0 || (count == -1 && errno == EINTR);
}

/// Returns when `watch` or the service is gone.
void serve(const Arguments& arguments)
{
    Service notifications(arguments);
    std::string received;
    while (notifications.process()) {
        const sdbus::IConnection::PollData bus = notifications.pollData();
        std::array<base::PollSource, 2> sources = {
            base::PollSource{.descriptor = STDIN_FILENO},
            base::PollSource{.descriptor = bus.fd, .events = bus.events}};
        const std::chrono::milliseconds limit(bus.getPollTimeout());
        base::waitFor(sources, limit < 0ms ? std::nullopt : std::optional(limit));
        if (sources[0].isReady() && !receive(received)) {
            return;
        }
        while (const auto notice = takeRecord<NoticeRequest>(received)) {
            notifications.give(*notice);
        }
    }
    send({.kind = NotifierMessageKind::ended});
}

/// Has the system kill this process when `watch` ends, even inside a call to the bus. False when `watch` has
/// ended already.
bool endWith(const std::string& watch)
{
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && std::to_string(::getppid()) == watch;
}

}  // namespace
}  // namespace quillmere::notices

int main(int count, char** words)
{
    using namespace quillmere::notices;
    if (count != 4) {
        return 1;
    }
    try {
        const Arguments arguments{.watch = words[1],
                                  .patienceForCapabilities = std::chrono::milliseconds(std::stol(words[2])),
                                  .patienceForNotify = std::chrono::milliseconds(std::stol(words[3]))};
        if (!endWith(arguments.watch)) {
            return 1;
        }
        serve(arguments);
        return 0;
    } catch (const sdbus::Error& error) {
        send({.kind = NotifierMessageKind::ended, .text = reason(error), .error = error.getName()});
    } catch (const std::exception& error) {
        send({.kind = NotifierMessageKind::ended, .text = error.what()});
    }
    return 1;
}
