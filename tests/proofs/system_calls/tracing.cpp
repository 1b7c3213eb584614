#include "proofs/system_calls/tracing.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <fstream>
#include <map>

#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

/// Not every machine has all of them; the mark lets strace pass over those that it does not know.
constexpr const char* tracedNames =
    "trace=?mkdir,?mkdirat,?chmod,?fchmodat,?fchmodat2,?stat,?lstat,?fstat,?newfstatat,?fstatat64,?statx,?"
    "open,"
    "?openat,read,write,fsync,close,?rename,?renameat,?renameat2,?unlink,?unlinkat,flock";

int run(std::vector<std::string> words)
{
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::posix_spawn_file_actions_addopen(&actions, channel, "/dev/null", O_RDWR, 0);
    }
    // The search for leaks at the end would need to trace a process that is traced already.
    const EnvironmentVariable sanitizer("ASAN_OPTIONS", "detect_leaks=0");
    pid_t process = -1;
    const int failure =
        ::posix_spawnp(&process, words.front().c_str(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        return -1;
    }
    int status = 0;
    while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// The name of the call on a line of the log, behind the number of its process; empty when there is none.
std::string nameOn(const std::string& line)
{
    std::size_t begin = 0;
    while (begin < line.size() &&
           (std::isdigit(static_cast<unsigned char>(line[begin])) || line[begin] == ' ')) {
        ++begin;
    }
    const std::size_t end = line.find('(', begin);
    const std::string name = end == std::string::npos ? "" : line.substr(begin, end - begin);
    return name.find_first_of(" +-<") == std::string::npos ? name : "";
}

std::vector<TracedCall> callsIn(const std::filesystem::path& log, const std::string& concerned)
{
    std::vector<TracedCall> calls;
    std::map<std::string, std::size_t> counts;
    std::ifstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        const std::string name = nameOn(line);
        if (!name.empty()) {
            const std::size_t ordinal = ++counts[name];
            if (line.find(concerned) != std::string::npos) {
                calls.push_back({.name = name, .ordinal = ordinal, .text = line});
            }
        }
    }
    return calls;
}

}  // namespace

bool canTrace()
{
    static const bool can = run({"strace", "-o", "/dev/null", "true"}) == 0;
    return can;
}

TracedRun traced(const std::filesystem::path& directory, const std::vector<std::string>& arguments,
                 const std::filesystem::path& concerned, const std::string& injection)
{
    const TemporaryDirectory place;
    // Another one for every run, so that all make the same calls.
    const TemporaryDirectory stateHome;
    const EnvironmentVariable variable("XDG_STATE_HOME", stateHome.path().string());
    const std::filesystem::path log = place.path() / "log";
    std::vector<std::string> words = {"strace", "-f", "-y", "-o", log.string(), "-e", tracedNames};
    if (!injection.empty()) {
        words.insert(words.end(), {"-e", "inject=" + injection});
    }
    words.insert(words.end(), {QUILLMERE_PROGRAM, "--directory", directory.string()});
    words.insert(words.end(), arguments.begin(), arguments.end());
    const int code = run(std::move(words));
    return {.code = code, .calls = callsIn(log, concerned.string())};
}

}  // namespace quillmere::test
