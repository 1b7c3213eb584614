#include "screen/terminal/crash_handler.hpp"

#include "screen/terminal/restore_terminal.hpp"

namespace quillmere::screen {
namespace {

/// Calls functions that are not async-signal-safe (signal-safety(7)). The program is ending anyway, so a
/// failure in here does no further harm.
void giveBackAndEnd(int signal)
{
    leaveScreen();
    ::raise(signal);
}

}  // namespace

CrashHandler::CrashHandler()
{
    struct sigaction action {};
    action.sa_handler = giveBackAndEnd;
    // A second signal, also from in here, has its usual effect and ends the program.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (std::size_t index = 0; index < signals.size(); ++index) {
        ::sigaction(signals[index], &action, &before_[index]);
    }
}

CrashHandler::~CrashHandler()
{
    for (std::size_t index = 0; index < signals.size(); ++index) {
        ::sigaction(signals[index], &before_[index], nullptr);
    }
}

}  // namespace quillmere::screen
