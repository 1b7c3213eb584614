#include "bar/ending_signals.hpp"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillmere::app {
namespace {

sigset_t endingSignals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    return set;
}

}  // namespace

EndingSignals::EndingSignals()
{
    const sigset_t set = endingSignals();
    descriptor_ = ::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor_ < 0) {
        throw std::system_error(errno, std::generic_category(), "signalfd");
    }
    ::sigprocmask(SIG_BLOCK, &set, &maskBefore_);
    struct sigaction ignoring {};
    ignoring.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &ignoring, &brokenPipeBefore_);
}

EndingSignals::~EndingSignals()
{
    // One that still waited would end the program when it is let through.
    signalfd_siginfo received;
    while (::read(descriptor_, &received, sizeof received) > 0) {
    }
    ::sigaction(SIGPIPE, &brokenPipeBefore_, nullptr);
    ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
    ::close(descriptor_);
}

}  // namespace quillmere::app
