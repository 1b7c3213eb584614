// The terminal of a person after a defect of ours.
#pragma once

#include <array>
#include <csignal>

namespace quillmere::app::ui {

/// While it lives, a signal by which the system ends a program that broke down (SIGABRT, SIGSEGV and the
/// like) first has curses give the terminal back, and then its usual effect.
class BreakdownHandler {
public:
    BreakdownHandler();
    BreakdownHandler(const BreakdownHandler&) = delete;
    BreakdownHandler& operator=(const BreakdownHandler&) = delete;
    ~BreakdownHandler();

private:
    static constexpr std::array<int, 5> signals{SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};

    std::array<struct sigaction, signals.size()> before_{};
};

}  // namespace quillmere::app::ui
