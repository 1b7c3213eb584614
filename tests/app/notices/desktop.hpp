// A desktop to test with: a session bus of its own, a notification service, and `quillmere watch` in real
// processes on the wall clock.
#pragma once

#include "base/system/child_process.hpp"
#include "base/system/descriptor.hpp"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "program_testing.hpp"

namespace quillmere::test {

/// Waits until a condition holds; false when it does not within half a minute, which is far longer than
/// anything here takes.
bool eventually(const std::function<bool()>& condition);

/// The wall clock, in whole seconds.
Instant presentSecond();

/// `focusing`, with a session whose time was used up `ago` seconds ago.
QuillmereState focusOver(double ago);
/// `breaking`, with a break whose time was used up `ago` seconds ago.
QuillmereState breakOver(double ago);
/// The same with one more open question.
QuillmereState asking(QuillmereState state, unsigned number, const std::string& question);

/// How many files of the directory were opened or made while `act` ran, by whomever; those of one name when
/// one is given.
struct FileEvents {
    std::size_t opened = 0;
    std::size_t made = 0;
};
FileEvents fileEventsDuring(const std::filesystem::path& directory, const std::string& name,
                            const std::function<void()>& act);

/// A pipe.
struct Pipe {
    base::Descriptor from;
    base::Descriptor to;
};
Pipe makePipe();

/// A child that is killed at the end, if it still runs.
class Process {
public:
    explicit Process(const base::ChildProgram& program) : child_(base::startChild(program)) {}
    Process(Process&& other) noexcept : child_(std::exchange(other.child_, -1)) {}
    ~Process();

    /// Sends a signal and waits for the end, as long as `eventually` does: the exit code, or 128 and the
    /// signal that ended it.
    int endBy(int signal);
    /// Waits for the end, as above.
    int wait();

    pid_t number() const { return child_; }

private:
    pid_t child_;
};

/// The numbers of a process's children, with a space between them.
std::string childrenOf(pid_t process);

/// A session bus: a dbus-daemon of its own, which starts no services by itself.
class SessionBus {
public:
    explicit SessionBus(const std::filesystem::path& socket);

private:
    TemporaryDirectory directory_;
    std::unique_ptr<Process> daemon_;
};

/// How the stand-in service behaves (notification_service.cpp).
struct ServiceSettings {
    std::string behaviour = "answers";
    Words capabilities = {"actions", "body", "body-markup"};
};

/// The stand-in service, running.
class NotificationService {
public:
    NotificationService(const std::string& address, const std::filesystem::path& log,
                        const ServiceSettings& settings);

    /// Has it signal something: "action 1 default".
    void signals(const std::string& order) const;

private:
    base::Descriptor orders_;
    std::unique_ptr<Process> process_;
};

/// A person's desktop. It has a place for a bus; tests say what is there.
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

    /// `quillmere watch` with these options, running; what it prints is in files named `name`.
    Process watching(const Words& options = {}, const std::string& name = "watch") const;
    /// The same on another desktop, where there is no bus unless the test makes one.
    Process watchingElsewhere(const std::string& name) const;
    std::filesystem::path elsewhere() const { return directory_.path() / "bus-elsewhere"; }
    /// `quillmere watch --once` with these options, until it has ended, which must go well.
    void watchesOnce(const Words& options = {}) const;

    std::filesystem::path file(const std::string& name) const { return directory_.path() / name; }
    /// What is in a file; empty while there is none.
    std::string textIn(const std::string& name) const;
    /// What the watch said so far.
    std::string said(const std::string& name = "watch") const { return textIn(name + ".err"); }
    std::string printed(const std::string& name = "watch") const { return textIn(name + ".out"); }
    /// How many records there are.
    std::size_t recordCount() const;

    /// The words that have the shell start `quillmere watch` with these options; it redirects nothing.
    std::string watchCommand(const Words& options = {}) const;
    /// The variables that it is started with.
    Words variables() const;

private:
    TemporaryDirectory directory_;
    std::unique_ptr<SessionBus> bus_;
    std::unique_ptr<NotificationService> service_;
};

/// How often a part stands in a text.
std::size_t countOf(const std::string& part, const std::string& text);

}  // namespace quillmere::test
