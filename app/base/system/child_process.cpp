#include "base/system/child_process.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string_view>
#include <system_error>

extern char** environ;  // NOLINT(readability-redundant-declaration): not every system declares it

namespace quillmere::base {
namespace {

void requireStarted(int error, const std::string& program)
{
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), program);
    }
}

/// The standard channels of the new process.
class Channels {
public:
    explicit Channels(const ChildProgram& program)
    {
        ::posix_spawn_file_actions_init(&actions_);
        if (program.input == -1) {
            ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        } else {
            ::posix_spawn_file_actions_adddup2(&actions_, program.input, STDIN_FILENO);
        }
        ::posix_spawn_file_actions_adddup2(&actions_, program.output == -1 ? STDERR_FILENO : program.output,
                                           STDOUT_FILENO);
        // Also descriptors that this program inherited, which may lack O_CLOEXEC.
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    }
    Channels(const Channels&) = delete;
    Channels& operator=(const Channels&) = delete;
    ~Channels() { ::posix_spawn_file_actions_destroy(&actions_); }

    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

/// No signal blocked, SIGPIPE and SIGXFSZ at their defaults, whatever this program has set for itself.
class UsualSignals {
public:
    UsualSignals()
    {
        sigset_t none;
        ::sigemptyset(&none);
        sigset_t usual;
        ::sigemptyset(&usual);
        ::sigaddset(&usual, SIGPIPE);
        ::sigaddset(&usual, SIGXFSZ);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &usual);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    UsualSignals(const UsualSignals&) = delete;
    UsualSignals& operator=(const UsualSignals&) = delete;
    ~UsualSignals() { ::posix_spawnattr_destroy(&attributes_); }

    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_;
};

/// The null-terminated array of pointers that exec(3) takes.
std::vector<char*> pointersTo(std::vector<std::string>& words)
{
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// The environment of this process, with these variables added or replaced.
std::vector<std::string> environmentWith(const std::vector<std::string>& variables)
{
    std::vector<std::string> all = variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const std::string_view name = text.substr(0, text.find('=') + 1);
        bool isReplaced = false;
        for (const std::string& variable : variables) {
            isReplaced = isReplaced || variable.starts_with(name);
        }
        if (!isReplaced) {
            all.emplace_back(text);
        }
    }
    return all;
}

/// The ending by the results of waitpid(2).
ChildEnding endingFrom(pid_t ended, int status)
{
    // waitpid(2) fails where SIGCHLD is ignored: the system has reaped the child, and its exit code is lost.
    if (ended == -1 || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) {
        return {.hasEnded = true, .failure = {}};
    }
    return {.hasEnded = true,
            .failure = WIFEXITED(status) ? "it ended with " + std::to_string(WEXITSTATUS(status))
                                         : "it was ended by signal " + std::to_string(WTERMSIG(status))};
}

}  // namespace

pid_t startChild(const ChildProgram& program)
{
    std::vector<std::string> words = program.words;
    std::vector<std::string> environment = environmentWith(program.variables);
    const Channels channels(program);
    const UsualSignals signals;
    pid_t child = -1;
    requireStarted(::posix_spawnp(&child, words.front().c_str(), channels.get(), signals.get(),
                                  pointersTo(words).data(), pointersTo(environment).data()),
                   words.front());
    return child;
}

ChildEnding endingOf(pid_t child)
{
    int status = 0;
    const pid_t ended = ::waitpid(child, &status, WNOHANG);
    if (ended == 0 || (ended == -1 && errno == EINTR)) {
        return {.hasEnded = false, .failure = {}};
    }
    return endingFrom(ended, status);
}

ChildEnding awaitEnding(pid_t child)
{
    int status = 0;
    pid_t ended = -1;
    do {
        ended = ::waitpid(child, &status, 0);
    } while (ended == -1 && errno == EINTR);
    return endingFrom(ended, status);
}

void killChild(pid_t child)
{
    ::kill(child, SIGKILL);
    while (::waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
    }
}

}  // namespace quillmere::base
