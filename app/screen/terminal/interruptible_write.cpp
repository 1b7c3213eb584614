#include "screen/terminal/interruptible_write.hpp"

#include "base/system/held_signals.hpp"

#include <sys/time.h>
#include <termios.h>
#include <unistd.h>

namespace quillmere::screen {
namespace {

/// Restores only the line modes of the terminal: a terminal that does not read would not receive more output.
void setModesOfLines()
{
    termios modes{};
    if (::tcgetattr(STDIN_FILENO, &modes) == 0) {
        modes.c_iflag |= ICRNL | IXON;
        modes.c_oflag |= OPOST | ONLCR;
        modes.c_lflag |= ICANON | ECHO | ISIG | IEXTEN;
        ::tcsetattr(STDIN_FILENO, TCSANOW, &modes);
    }
}

/// Calls async-signal-safe functions only (signal-safety(7)).
void endWhenAsked(int)
{
    sigset_t waiting;
    ::sigpending(&waiting);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGQUIT}) {
        if (::sigismember(&waiting, signal) == 1) {
            setModesOfLines();
            base::haveUsualEffect(signal);
        }
    }
}

void setAlarm(time_t seconds)
{
    const itimerval each{.it_interval = {seconds, 0}, .it_value = {seconds, 0}};
    ::setitimer(ITIMER_REAL, &each, nullptr);
}

}  // namespace

InterruptibleWrite::InterruptibleWrite()
{
    struct sigaction action {};
    action.sa_handler = endWhenAsked;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGALRM, &action, &before_);
    setAlarm(1);
}

InterruptibleWrite::~InterruptibleWrite()
{
    setAlarm(0);
    ::sigaction(SIGALRM, &before_, nullptr);
}

}  // namespace quillmere::screen
