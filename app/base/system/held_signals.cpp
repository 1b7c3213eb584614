#include "base/system/held_signals.hpp"

#include <sys/signalfd.h>

#include <cerrno>
#include <system_error>

namespace quillmere::base {
namespace {

struct sigaction dispositionOf(int signal)
{
    struct sigaction present {};
    ::sigaction(signal, nullptr, &present);
    return present;
}

void dispose(int signal, void (*handler)(int), struct sigaction* before)
{
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, before);
}

}  // namespace

HeldSignals::HeldSignals(std::initializer_list<int> signals)
{
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : signals) {
        if (dispositionOf(signal).sa_handler != SIG_IGN) {
            ::sigaddset(&held, signal);
        }
    }
    file_ = Descriptor(::signalfd(-1, &held, SFD_NONBLOCK | SFD_CLOEXEC));
    if (file_.get() == -1) {
        throw std::system_error(errno, std::generic_category(), "signalfd");
    }
    ::pthread_sigmask(SIG_BLOCK, &held, &before_);
}

HeldSignals::~HeldSignals()
{
    // A pending signal would have its effect when it is unblocked.
    take();
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

std::vector<int> HeldSignals::take() const
{
    std::vector<int> signals;
    signalfd_siginfo one{};
    while (::read(file_.get(), &one, sizeof one) == static_cast<ssize_t>(sizeof one)) {
        signals.push_back(static_cast<int>(one.ssi_signo));
    }
    return signals;
}

BrokenPipesAreErrors::BrokenPipesAreErrors() { dispose(SIGPIPE, SIG_IGN, &before_); }

BrokenPipesAreErrors::~BrokenPipesAreErrors() { ::sigaction(SIGPIPE, &before_, nullptr); }

void haveUsualEffect(int signal)
{
    sigset_t one;
    sigset_t before;
    ::sigemptyset(&one);
    ::sigaddset(&one, signal);
    dispose(signal, SIG_DFL, nullptr);
    ::raise(signal);
    ::pthread_sigmask(SIG_UNBLOCK, &one, &before);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace quillmere::base
