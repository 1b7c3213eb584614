#include "desktop.hpp"

#include "workspace/state_home.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <sstream>
#include <thread>
#include <utility>

namespace quillmere::test {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

bool eventually(const std::function<bool()>& condition)
{
    const auto limit = std::chrono::steady_clock::now() + 30s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

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

Pipe makePipe()
{
    int ends[2] = {-1, -1};
    EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    return {.from = base::Descriptor(ends[0]), .to = base::Descriptor(ends[1])};
}

FileEvents fileEventsDuring(const fs::path& directory, const std::string& name,
                            const std::function<void()>& act)
{
    const base::Descriptor events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
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

Process::~Process()
{
    if (child_ != -1) {
        base::killChild(child_);
    }
}

int Process::endBy(int signal)
{
    ::kill(child_, signal);
    return wait();
}

int Process::wait()
{
    int status = 0;
    if (!eventually([&] { return ::waitpid(child_, &status, WNOHANG) == child_; })) {
        ADD_FAILURE() << "a process does not end";
        return -1;
    }
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
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

/// Starts a program and waits for its first line.
std::unique_ptr<Process> readyProcess(base::ChildProgram program)
{
    Pipe output = makePipe();
    program.output = output.to.get();
    auto process = std::make_unique<Process>(program);
    output.to = base::Descriptor();
    char character = 0;
    while (character != '\n') {
        if (::read(output.from.get(), &character, 1) <= 0) {
            ADD_FAILURE() << program.words.front() << " did not get ready";
            break;
        }
    }
    return process;
}

/// A word for the shell.
std::string quoted(const std::string& word)
{
    std::string text = "'";
    for (const char character : word) {
        text += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return text + "'";
}

}  // namespace

SessionBus::SessionBus(const fs::path& socket)
{
    const fs::path settings = directory_.path() / "bus.conf";
    writeText(settings, "<busconfig><type>session</type><listen>unix:path=" + socket.string() +
                            "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow "
                            "own=\"*\"/><allow receive_sender=\"*\"/></policy></busconfig>");
    // It complains about limits that do not matter here.
    daemon_ = readyProcess({.words = {"/bin/sh", "-c",
                                      "exec dbus-daemon --nofork --print-address=1 --config-file=\"$0\" "
                                      "2>/dev/null",
                                      settings.string()}});
}

NotificationService::NotificationService(const std::string& address, const fs::path& log,
                                         const ServiceSettings& settings)
{
    Words words = {NOTIFICATION_SERVICE, log.string(), settings.behaviour};
    words.insert(words.end(), settings.capabilities.begin(), settings.capabilities.end());
    Pipe orders = makePipe();
    process_ = readyProcess(
        {.words = words, .variables = {"DBUS_SESSION_BUS_ADDRESS=" + address}, .input = orders.from.get()});
    orders_ = std::move(orders.to);
}

void NotificationService::signals(const std::string& order) const
{
    const std::string line = order + "\n";
    EXPECT_EQ(::write(orders_.get(), line.data(), line.size()), static_cast<ssize_t>(line.size()));
}

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

std::string Desktop::watchCommand(const Words& options) const
{
    // With a signal ignored and a file left open, as a program may be started.
    std::string command = "trap '' PIPE; exec 7</dev/null; exec " + quoted(QUILLMERE_PROGRAM) +
                          " --directory " + quoted(person.directory().string()) + " watch";
    for (const std::string& option : options) {
        command += " " + quoted(option);
    }
    return command;
}

Words Desktop::variables() const
{
    return {"DBUS_SESSION_BUS_ADDRESS=unix:path=" + socket().string(),
            "XDG_STATE_HOME=" + person.stateHome().string(), "TZ=UTC"};
}

Process Desktop::watching(const Words& options, const std::string& name) const
{
    const std::string command = watchCommand(options) + " >" + quoted(file(name + ".out").string()) + " 2>" +
                                quoted(file(name + ".err").string());
    return Process({.words = {"/bin/sh", "-c", command}, .variables = variables()});
}

Process Desktop::watchingElsewhere(const std::string& name) const
{
    Words there = variables();
    there.front() = "DBUS_SESSION_BUS_ADDRESS=unix:path=" + elsewhere().string();
    const std::string command = watchCommand() + " >" + quoted(file(name + ".out").string()) + " 2>" +
                                quoted(file(name + ".err").string());
    return Process({.words = {"/bin/sh", "-c", command}, .variables = there});
}

void Desktop::watchesOnce(const Words& options) const
{
    Words all = {"--once"};
    all.insert(all.end(), options.begin(), options.end());
    EXPECT_EQ(watching(all).wait(), 0) << said();
}

std::string Desktop::textIn(const std::string& name) const
{
    return fs::exists(file(name)) ? textOf(file(name)) : std::string();
}

std::size_t Desktop::recordCount() const
{
    const fs::path records = workspace::stateDirectory(person.directory(), person.stateHome()) / "notices";
    return fs::exists(records) ? namesIn(records).size() : 0;
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
