#include "proofs/crowds/crowd.hpp"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace quillmere::test {
namespace {

/// Ends the process without the endings of what its parent began.
[[noreturn]] void endWith(const std::function<int()>& work) noexcept
{
    try {
        ::_exit(work());
    } catch (const std::exception& error) {
        std::cerr << "one of a crowd: " << error.what() << '\n';
    }
    ::_exit(1);
}

}  // namespace

Crowd::~Crowd()
{
    killAll();
    for (const pid_t process : atWork_) {
        ::waitpid(process, nullptr, 0);
    }
}

void Crowd::join(const std::function<int()>& work)
{
    const pid_t process = ::fork();
    if (process == -1) {
        throw std::runtime_error("no process");
    }
    if (process == 0) {
        endWith(work);
    }
    atWork_.push_back(process);
}

bool Crowd::allSucceed()
{
    bool succeed = true;
    while (!atWork_.empty()) {
        int status = 0;
        const pid_t process = ::waitpid(-1, &status, 0);
        if (process == -1 && errno != EINTR) {
            throw std::runtime_error("no process to wait for");
        }
        if (std::erase(atWork_, process) == 0 || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) {
            continue;
        }
        if (succeed) {
            std::cerr << "one of a crowd ended with status " << status << '\n';
            killAll();
        }
        succeed = false;
    }
    return succeed;
}

void Crowd::killAll()
{
    for (const pid_t process : atWork_) {
        ::kill(process, SIGKILL);
    }
}

}  // namespace quillmere::test
