#include "desktop.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <sstream>

namespace quillmere::test {

namespace fs = std::filesystem;

Instant presentSecond()
{
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Instant(std::floor(std::chrono::duration<double>(sinceEpoch).count()));
}

QuillmereState focusOver(double ago)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    WorkSession& session = state.currentBlock->sessions.back();
    session.startedAt = presentSecond() - ago - session.plannedDurationSeconds;
    state.updatedAt = session.startedAt;
    return state;
}

QuillmereState breakOver(double ago)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.breakStartedAt = presentSecond() - ago - state.currentBlock->breakDurationSeconds;
    WorkSession& session = state.currentBlock->sessions.back();
    session.endedAt = *state.breakStartedAt;
    session.startedAt = *session.endedAt - session.plannedDurationSeconds;
    state.updatedAt = *state.breakStartedAt;
    return state;
}

QuillmereState asking(QuillmereState state, unsigned number, const std::string& question)
{
    state.agentQuestions.push_back({.id = identifier(600 + number),
                                    .question = question,
                                    .createdAt = state.updatedAt,
                                    .answer = std::nullopt,
                                    .answeredAt = std::nullopt});
    return state;
}

FileEvents fileEventsDuring(const fs::path& directory, const std::string& name,
                            const std::function<void()>& act)
{
    const Descriptor events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    EXPECT_NE(::inotify_add_watch(events.get(), directory.c_str(), IN_OPEN | IN_CREATE), -1);
    act();
    FileEvents counts;
    alignas(inotify_event) std::array<char, 65'536> bytes;
    for (ssize_t count = 0; (count = ::read(events.get(), bytes.data(), bytes.size())) > 0;) {
        const inotify_event* event = nullptr;
        for (ssize_t at = 0; at < count; at += static_cast<ssize_t>(sizeof *event + event->len)) {
            event = reinterpret_cast<const inotify_event*>(bytes.data() + at);
            if (event->len > 0 && (name.empty() || name == event->name)) {
                ++((event->mask & IN_CREATE) != 0 ? counts.made : counts.opened);
            }
        }
    }
    return counts;
}

int endBy(Process& process, int signal)
{
    process.send(signal);
    return process.wait().code;
}

std::string childrenOf(pid_t process)
{
    const std::string number = std::to_string(process);
    std::ifstream file("/proc/" + number + "/task/" + number + "/children");
    std::string children;
    std::getline(file, children);
    return children.substr(0, children.find_last_not_of(' ') + 1);
}

namespace {

ProcessOptions busDaemon(const fs::path& socket, const fs::path& settings)
{
    writeText(settings, "<busconfig><type>session</type><listen>unix:path=" + socket.string() +
                            "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow "
                            "own=\"*\"/><allow receive_sender=\"*\"/></policy></busconfig>");
    return {.words = {"dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + settings.string()},
            .output = Channel::pipe()};
}

ProcessOptions notificationService(const std::string& address, const fs::path& log,
                                   const ServiceSettings& settings)
{
    Words words = {NOTIFICATION_SERVICE, log.string(), settings.behaviour};
    words.insert(words.end(), settings.capabilities.begin(), settings.capabilities.end());
    return {.words = words,
            .input = Channel::pipe(),
            .output = Channel::pipe(),
            .environment = {{"DBUS_SESSION_BUS_ADDRESS", address}}};
}

/// In a child: a signal ignored and a file left open.
void ignoreSignalAndLeaveFileOpen()
{
    ::signal(SIGPIPE, SIG_IGN);
    const int file = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    // The file must not get the number of a closed standard channel.
    ::fcntl(file, F_DUPFD, STDERR_FILENO + 1);
    ::close(file);
}

}  // namespace

SessionBus::SessionBus(const fs::path& socket) : daemon_(busDaemon(socket, directory_.path() / "bus.conf"))
{
    // It prints its address when it is ready.
    EXPECT_NE(daemon_.line(), "");
}

NotificationService::NotificationService(const std::string& address, const fs::path& log,
                                         const ServiceSettings& settings)
    : process_(notificationService(address, log, settings))
{
    EXPECT_EQ(process_.line(), "ready");
}

void NotificationService::signals(const std::string& order) { EXPECT_TRUE(process_.write(order + "\n")); }

void Desktop::hasService(const ServiceSettings& settings)
{
    service_.reset();
    service_ = std::make_unique<NotificationService>("unix:path=" + socket().string(), file("log"), settings);
}

void Desktop::losesBus()
{
    service_.reset();
    bus_.reset();
    fs::remove(socket());
}

std::vector<nlohmann::json> Desktop::notices() const
{
    std::vector<nlohmann::json> calls;
    std::istringstream lines(textIn("log"));
    for (std::string line; std::getline(lines, line) && !lines.eof();) {
        calls.push_back(nlohmann::json::parse(line));
    }
    return calls;
}

ProcessOptions Desktop::watchOptions(const Words& options, const std::string& name) const
{
    Words words = {QUILLMERE_PROGRAM, "--directory", person.directory().string(), "watch"};
    words.insert(words.end(), options.begin(), options.end());
    // Left by an earlier watch.
    fs::remove(file(name + ".out"));
    fs::remove(file(name + ".err"));
    return {.words = words,
            .output = Channel::toFile(file(name + ".out")),
            .error = Channel::toFile(file(name + ".err")),
            .environment = {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + socket().string()},
                            {"XDG_STATE_HOME", person.stateHome().string()},
                            {"TZ", "UTC"},
                            // A notifier that is killed while its leaks are looked for would speak among the
                            // messages of the watch; a leak also shows in the exit code.
                            {"ASAN_OPTIONS", "log_path=" + file(name + ".sanitizer").string()}},
            .inChild = ignoreSignalAndLeaveFileOpen};
}

void Desktop::watchesOnce(const Words& options) const
{
    Words all = {"--once"};
    all.insert(all.end(), options.begin(), options.end());
    EXPECT_EQ(run(watchOptions(all)).code, 0) << said();
}

std::string Desktop::textIn(const std::string& name) const
{
    return fs::exists(file(name)) ? textOf(file(name)) : std::string();
}

std::size_t countOf(const std::string& part, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
        ++count;
    }
    return count;
}

}  // namespace quillmere::test
