// The terminal of a person after a defect of ours.
#pragma once

#include <array>
#include <csignal>

namespace quillmere::screen {

/// While it lives, a signal by which the system ends a program that broke down (SIGABRT, SIGSEGV and the
/// like) first has curses give the terminal back, and then its usual effect.
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
