// Restores the terminal when the program crashes.
#pragma once

#include <array>
#include <csignal>

namespace quillmere::screen {

/// During its lifetime, a signal of a crash (SIGABRT, SIGSEGV and the like) first restores the terminal and
/// then has its usual effect.
class CrashHandler {
public:
    CrashHandler();
    CrashHandler(const CrashHandler&) = delete;
    CrashHandler& operator=(const CrashHandler&) = delete;
    ~CrashHandler();

private:
    static constexpr std::array<int, 5> signals{SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};

    std::array<struct sigaction, signals.size()> before_{};
};

}  // namespace quillmere::screen
