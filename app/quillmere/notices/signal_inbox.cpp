#include "notices/signal_inbox.hpp"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillmere::app {
namespace {

bool isIgnored(int signal)
{
    struct sigaction present {};
    ::sigaction(signal, nullptr, &present);
    return present.sa_handler == SIG_IGN;
}

}  // namespace

SignalInbox::SignalInbox()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGCHLD}) {
        if (!isIgnored(signal)) {
            ::sigaddset(&signals, signal);
        }
    }
    file_ = OpenFile(::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    if (file_.get() == -1) {
        throw std::system_error(errno, std::generic_category(), "signalfd");
    }
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
}

SignalInbox::~SignalInbox() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

bool SignalInbox::takeEnd()
{
    bool isAsked = false;
    signalfd_siginfo signal;
    while (::read(file_.get(), &signal, sizeof signal) == static_cast<ssize_t>(sizeof signal)) {
        isAsked = isAsked || signal.ssi_signo != SIGCHLD;
    }
    return isAsked;
}

}  // namespace quillmere::app
