// A desktop to test with: a session bus of its own, a notification service, and `quillmere watch` in real
// processes on the wall clock.
#pragma once

#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "program_testing.hpp"
#include "support/process.hpp"

namespace quillmere::test {

/// The wall clock, in whole seconds.
Instant presentSecond();

/// `focusing`, with a session whose planned end was `ago` seconds ago.
QuillmereState focusOver(double ago);
/// `breaking`, with a break whose end was `ago` seconds ago.
QuillmereState breakOver(double ago);
/// The state with one more open question.
QuillmereState asking(QuillmereState state, unsigned number, const std::string& question);

/// How many files of the directory were opened or created while `act` ran, by any process; only those named
/// `name` unless it is empty.
struct FileEvents {
    std::size_t opened = 0;
    std::size_t made = 0;
};
FileEvents fileEventsDuring(const std::filesystem::path& directory, const std::string& name,
                            const std::function<void()>& act);

/// Sends a signal and waits for the end; returns the exit code, or 128 and the signal.
int endBy(Process& process, int signal);

/// The numbers of a process's children, with a space between them.
std::string childrenOf(pid_t process);

/// A session bus: a dbus-daemon of its own, which starts no services by itself.
class SessionBus {
public:
    explicit SessionBus(const std::filesystem::path& socket);

private:
    TemporaryDirectory directory_;
    Process daemon_;
};

/// How the stand-in service behaves (notification_service.cpp).
struct ServiceSettings {
    std::string behaviour = "answers";
    Words capabilities = {"actions", "body", "body-markup", "sound"};
};

/// The stand-in service, running.
class NotificationService {
public:
    NotificationService(const std::string& address, const std::filesystem::path& log,
                        const ServiceSettings& settings);

    /// Has it signal something: "action 1 default".
    void signals(const std::string& order);

private:
    Process process_;
};

/// A person's desktop, without a bus and a service until the test starts them.
class Desktop : public testing::Test {
protected:
    Desktop() { person.now = presentSecond(); }

    Person person;

    std::filesystem::path socket() const { return directory_.path() / "bus"; }
    void hasBus() { bus_ = std::make_unique<SessionBus>(socket()); }
    void hasService(const ServiceSettings& settings = {});
    void losesBus();
    NotificationService& service() { return *service_; }

    /// Every call of Notify so far.
    std::vector<nlohmann::json> notices() const;
    bool hasNotices(std::size_t count) const { return notices().size() == count; }

    /// How `quillmere watch` with these options is started: with SIGPIPE ignored and a file left open, as
    /// some programs start others. Its output goes to the file `name`.out, its messages to `name`.err.
    ProcessOptions watchOptions(const Words& options = {}, const std::string& name = "watch") const;
    /// Starts it.
    Process watching(const Words& options = {}, const std::string& name = "watch") const
    {
        return Process(watchOptions(options, name));
    }
    /// Runs `quillmere watch --once` with these options to its end, and expects success.
    void watchesOnce(const Words& options = {}) const;

    std::filesystem::path file(const std::string& name) const { return directory_.path() / name; }
    /// The content of a file; empty while there is none.
    std::string textIn(const std::string& name) const;
    /// The messages of the watch so far.
    std::string said(const std::string& name = "watch") const { return textIn(name + ".err"); }
    std::string printed(const std::string& name = "watch") const { return textIn(name + ".out"); }

private:
    TemporaryDirectory directory_;
    std::unique_ptr<SessionBus> bus_;
    std::unique_ptr<NotificationService> service_;
};

/// How often a part occurs in a text.
std::size_t countOf(const std::string& part, const std::string& text);

}  // namespace quillmere::test
