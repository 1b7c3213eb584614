// A notification service for tests: notification_service LOG BEHAVIOUR [CAPABILITY …]
//
// Appends each call of Notify to LOG, one JSON object per line, and prints "ready" when it owns its name.
// Reads orders from standard input until that ends: "action NUMBER KEY" and "closed NUMBER" send these
// signals, "release" gives up the name while the service keeps running. Behaviours: "answers"; "mute" never
// answers GetCapabilities, "tired" answers it once; "numb" never answers Notify; "picky" refuses notices
// about the work, with a different text each time; "frail" ends when it is asked for a notice; "garbled"
// answers Notify with a text instead of a number.
#include <sdbus-c++/sdbus-c++.h>
#include <nlohmann/json.hpp>

#include <poll.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>
#include <utility>

namespace {

constexpr const char* interface = "org.freedesktop.Notifications";

using Capabilities = std::vector<std::string>;
using Hints = std::map<std::string, sdbus::Variant>;

/// Keeps an answer for as long as the service runs; dropping it would answer with an error.
template <class... Results>
void keepUnanswered(sdbus::Result<Results...>&& result)
{
    static std::vector<sdbus::Result<Results...>> kept;
    kept.push_back(std::move(result));
}

class Service {
public:
    Service(std::string log, const std::string& behaviour, const Capabilities& capabilities)
        : log_(std::move(log)),
          bus_(sdbus::createSessionBusConnection()),
          object_(sdbus::createObject(*bus_, "/org/freedesktop/Notifications"))
    {
        object_->registerMethod("GetCapabilities")
            .onInterface(interface)
            .implementedAs([this, behaviour, capabilities](sdbus::Result<Capabilities>&& result) {
                const bool isFirst = !std::exchange(wasAsked_, true);
                if (behaviour == "mute" || (behaviour == "tired" && !isFirst)) {
                    keepUnanswered(std::move(result));
                } else {
                    result.returnResults(capabilities);
                }
            });
        if (behaviour == "garbled") {
            object_->registerMethod("Notify").onInterface(interface).implementedAs(
                [this](const std::string& name, std::uint32_t replaces, const std::string& icon,
                       const std::string& summary, const std::string& body,
                       const std::vector<std::string>& actions, const Hints& hints, std::int32_t timeout) {
                    logCall(name, replaces, icon, summary, body, actions, hints, timeout);
                    return std::string("one");
                });
        } else {
            object_->registerMethod("Notify").onInterface(interface).implementedAs(
                [this, behaviour](sdbus::Result<std::uint32_t>&& result, const std::string& name,
                                  std::uint32_t replaces, const std::string& icon, const std::string& summary,
                                  const std::string& body, const std::vector<std::string>& actions,
                                  const Hints& hints, std::int32_t timeout) {
                    logCall(name, replaces, icon, summary, body, actions, hints, timeout);
                    answer(std::move(result), behaviour, replaces, summary);
                });
        }
        object_->registerSignal("ActionInvoked")
            .onInterface(interface)
            .withParameters<std::uint32_t, std::string>();
        object_->registerSignal("NotificationClosed")
            .onInterface(interface)
            .withParameters<std::uint32_t, std::uint32_t>();
        object_->finishRegistration();
        takeName();
    }

    void obey(const std::string& line)
    {
        std::istringstream words(line);
        std::string order;
        std::uint32_t number = 0;
        std::string key;
        words >> order >> number >> key;
        if (order == "release") {
            bus_->releaseName(interface);
        } else if (order == "action") {
            object_->emitSignal("ActionInvoked").onInterface(interface).withArguments(number, key);
        } else {
            constexpr std::uint32_t dismissed = 2;
            object_->emitSignal("NotificationClosed").onInterface(interface).withArguments(number, dismissed);
        }
    }

    /// Returns when standard input ends.
    void serve()
    {
        std::string arrived;
        while (true) {
            while (bus_->processPendingRequest()) {
            }
            const auto bus = bus_->getEventLoopPollData();
            std::array<pollfd, 2> files = {pollfd{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0},
                                           pollfd{.fd = bus.fd, .events = bus.events, .revents = 0}};
            ::poll(files.data(), files.size(), bus.getPollTimeout());
            if (files[0].revents == 0) {
                continue;
            }
            std::array<char, 256> bytes;
            const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
            if (count <= 0) {
                return;
            }
            arrived.append(bytes.data(), static_cast<std::size_t>(count));
            for (std::size_t end = 0; (end = arrived.find('\n')) != std::string::npos;) {
                obey(arrived.substr(0, end));
                arrived.erase(0, end + 1);
            }
        }
    }

private:
    /// Tries for ten seconds: the service before may not have ended yet.
    void takeName()
    {
        for (int attempt = 0;; ++attempt) {
            try {
                bus_->requestName(interface);
                return;
            } catch (const sdbus::Error&) {
                if (attempt == 1'000) {
                    throw;
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        }
    }

    void logCall(const std::string& name, std::uint32_t replaces, const std::string& icon,
                 const std::string& summary, const std::string& body, const std::vector<std::string>& actions,
                 const Hints& hints, std::int32_t timeout)
    {
        nlohmann::json call = {{"name", name},
                               {"replaces", replaces},
                               {"icon", icon},
                               {"summary", summary},
                               {"body", body},
                               {"actions", actions},
                               {"urgency", hints.at("urgency").get<std::uint8_t>()},
                               {"timeout", timeout}};
        if (const auto sound = hints.find("sound-name"); sound != hints.end()) {
            call["sound"] = sound->second.get<std::string>();
        }
        if (hints.contains("suppress-sound")) {
            call["sound"] = "suppressed";
        }
        std::ofstream(log_, std::ios::app) << call.dump() + '\n';
    }

    void answer(sdbus::Result<std::uint32_t>&& result, const std::string& behaviour, std::uint32_t replaces,
                const std::string& summary)
    {
        if (behaviour == "numb") {
            keepUnanswered(std::move(result));
        } else if (behaviour == "frail") {
            std::quick_exit(0);
        } else if (behaviour == "picky" && summary.find("question") == std::string::npos) {
            result.returnError(
                sdbus::Error("org.example.Refused", "no, for the " + std::to_string(++refusals_) + ". time"));
        } else {
            result.returnResults(replaces != 0 ? replaces : ++last_);
        }
    }

    std::string log_;
    std::unique_ptr<sdbus::IConnection> bus_;
    std::unique_ptr<sdbus::IObject> object_;
    std::uint32_t last_ = 0;
    int refusals_ = 0;
    bool wasAsked_ = false;
};

}  // namespace

int main(int count, char** arguments)
{
    const std::vector<std::string> words(arguments + 1, arguments + count);
    try {
        Service service(words.at(0), words.at(1), Capabilities(words.begin() + 2, words.end()));
        std::cout << "ready" << std::endl;
        service.serve();
        return 0;
    } catch (const sdbus::Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
