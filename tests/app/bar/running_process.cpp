#include "bar/running_process.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <utility>

extern char** environ;  // NOLINT(readability-redundant-declaration): not everywhere declared

namespace quillmere::test {
namespace {

/// Longer than anything takes, so that a test that waits in vain ends.
constexpr int patience = 60'000;

pid_t spawn(Words words, int output)
{
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = -1;
    EXPECT_EQ(::posix_spawnp(&process, pointers.front(), &actions, nullptr, pointers.data(), environ), 0);
    ::posix_spawn_file_actions_destroy(&actions);
    return process;
}

template <class Condition>
void await(Condition condition)
{
    for (int attempt = 0; attempt < patience; ++attempt) {
        if (condition()) {
            return;
        }
        ::usleep(1'000);
    }
    ADD_FAILURE() << "what was waited for did not come about";
}

int endOf(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

RunningProcess::RunningProcess(const Words& words, bool pipeIsFull)
{
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    if (pipeIsFull) {
        const int size = ::fcntl(ends[1], F_SETPIPE_SZ, 4096);
        const std::string filling(static_cast<std::size_t>(size), '\n');
        EXPECT_EQ(::write(ends[1], filling.data(), filling.size()), size);
    }
    process_ = spawn(words, ends[1]);
    ::close(ends[1]);
    reading_ = ends[0];
}

RunningProcess::~RunningProcess()
{
    stopReading();
    if (process_ != -1) {
        send(SIGKILL);
        endOf(process_);
    }
}

bool RunningProcess::hasMore() const
{
    pollfd poll{.fd = reading_, .events = POLLIN, .revents = 0};
    return !unread_.empty() || ::poll(&poll, 1, 0) == 1;
}

std::string RunningProcess::line()
{
    std::size_t end = std::string::npos;
    while ((end = unread_.find('\n')) == std::string::npos) {
        std::array<char, 4096> characters;
        pollfd poll{.fd = reading_, .events = POLLIN, .revents = 0};
        const ssize_t count =
            ::poll(&poll, 1, patience) == 1 ? ::read(reading_, characters.data(), characters.size()) : 0;
        if (count <= 0) {
            ADD_FAILURE() << "no line came, but: " << unread_;
            return {};
        }
        unread_.append(characters.data(), static_cast<std::size_t>(count));
    }
    const std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

void RunningProcess::send(int signal) const { ::kill(process_, signal); }

void RunningProcess::stopReading()
{
    if (reading_ != -1) {
        ::close(std::exchange(reading_, -1));
    }
}

void RunningProcess::awaitHoldingBack(int signal) const
{
    const unsigned long long bit = 1ULL << (signal - 1);
    await([&] { return (std::stoull(status("SigBlk:"), nullptr, 16) & bit) != 0; });
}

void RunningProcess::awaitSleep() const
{
    await([&] { return status("State:") == "S"; });
}

long RunningProcess::sleeps() const { return std::stol(status("voluntary_ctxt_switches:")); }

void RunningProcess::awaitSleepAfter(long sleepsBefore) const
{
    await([&] { return sleeps() > sleepsBefore; });
}

std::string RunningProcess::status(const std::string& name) const
{
    std::ifstream file("/proc/" + std::to_string(process_) + "/status");
    for (std::string word; file >> word;) {
        if (std::string value; word == name && file >> value) {
            return value;
        }
    }
    return "0";
}

int RunningProcess::wait()
{
    await([&] {
        siginfo_t ended{};
        ::waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT);
        return ended.si_pid == process_;
    });
    // Nothing but one that has not ended hears of it.
    send(SIGKILL);
    return endOf(std::exchange(process_, -1));
}

bool isInstalled(const std::string& name) { return std::system((name + " -V >/dev/null 2>&1").c_str()) == 0; }

Words followingBar(const Words& words)
{
    Words all = {QUILLMERE_PROGRAM, "bar", "--follow"};
    all.insert(all.end(), words.begin(), words.end());
    return all;
}

}  // namespace quillmere::test
