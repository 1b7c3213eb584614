// Measurements in child processes, independent of earlier ones: neither the memory that another library has
// used nor its free lists matter.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quillmere::bench {

/// Runs `measurement` in a child process and returns the text that it writes to the given descriptor.
template <class Measurement>
std::string inChildProcess(Measurement measurement)
{
    int ends[2];
    std::fflush(stdout);
    if (::pipe(ends) == -1) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    const pid_t child = ::fork();
    if (child == -1) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (child == 0) {
        ::close(ends[0]);
        measurement(ends[1]);
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string output;
    char buffer[4096];
    for (ssize_t count; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;) {
        output.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (status != 0) {
        throw std::runtime_error("a measurement failed");
    }
    return output;
}

}  // namespace quillmere::bench
