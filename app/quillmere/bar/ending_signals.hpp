// The signals by which a program that stays is asked to end.
#pragma once

#include <signal.h>

namespace quillmere::app {

/// While it lives, SIGTERM and SIGINT end nothing but can be waited for (signalfd(2)), and writing where
/// nobody reads is an error (EPIPE), not an end. What was received is forgotten afterwards.
class EndingSignals {
public:
    /// Throws `std::system_error`.
    EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;
    ~EndingSignals();

    /// For poll(2): readable when one was received.
    int descriptor() const noexcept { return descriptor_; }

private:
    int descriptor_;
    sigset_t maskBefore_{};
    struct sigaction brokenPipeBefore_ {};
};

}  // namespace quillmere::app
