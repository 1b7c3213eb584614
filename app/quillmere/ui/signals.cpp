#include "ui/signals.hpp"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillmere::app::ui {
namespace {

sigset_t setOf(std::initializer_list<int> signals)
{
    sigset_t set;
    ::sigemptyset(&set);
    for (const int signal : signals) {
        ::sigaddset(&set, signal);
    }
    return set;
}

/// Lets a signal come with its usual effect.
void letCome(int signal)
{
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;
    ::sigaction(signal, &usual, nullptr);
    const sigset_t one = setOf({signal});
    ::raise(signal);
    ::pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
}

}  // namespace

Signals::Signals()
{
    const sigset_t held = setOf({SIGTERM, SIGHUP, SIGINT, SIGQUIT, SIGTSTP, SIGCONT, SIGWINCH});
    ::pthread_sigmask(SIG_BLOCK, &held, &before_);
    descriptor_ = ::signalfd(-1, &held, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor_ < 0) {
        const int reason = errno;
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        throw std::system_error(reason, std::generic_category(), "signalfd");
    }
}

Signals::~Signals()
{
    ::close(descriptor_);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

std::vector<int> Signals::take()
{
    std::vector<int> signals;
    signalfd_siginfo one{};
    while (::read(descriptor_, &one, sizeof one) == static_cast<ssize_t>(sizeof one)) {
        signals.push_back(static_cast<int>(one.ssi_signo));
    }
    return signals;
}

void Signals::stop()
{
    letCome(SIGTSTP);
    const sigset_t stop = setOf({SIGTSTP});
    ::pthread_sigmask(SIG_BLOCK, &stop, nullptr);
}

void endBySignal(int signal) { letCome(signal); }

}  // namespace quillmere::app::ui
