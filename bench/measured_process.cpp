#include "measured_process.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <system_error>

extern char** environ;  // NOLINT(readability-redundant-declaration): not declared on every system

namespace quillmere::bench {
namespace {

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

Cost costOf(const std::vector<std::string>& words)
{
    std::vector<std::string> copies = words;
    std::vector<char*> pointers;
    for (std::string& word : copies) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const auto begin = std::chrono::steady_clock::now();
    pid_t process = -1;
    const int error = ::posix_spawnp(&process, pointers.front(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), words.front());
    }
    int status = 0;
    rusage usage{};
    ::wait4(process, &status, 0, &usage);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    if (status != 0) {
        throw std::runtime_error(words.front() + " has failed");
    }
    constexpr double bytesPerKibibyte = 1024;
    return {.wallSeconds = wall.count(),
            .processorSeconds = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            .peakBytes = static_cast<double>(usage.ru_maxrss) * bytesPerKibibyte};
}

}  // namespace quillmere::bench
