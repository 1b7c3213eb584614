#include "screen/crash_handler.hpp"

#include "screen/restore_terminal.hpp"

namespace quillmere::screen {
namespace {

/// Not all of this may be done in a handler (signal-safety(7)); but nothing is left that it could harm.
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
    // The second time, also in here, it ends the program.
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
