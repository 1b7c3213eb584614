// Signals as a descriptor that a loop waits for.
#pragma once

#include "base/system/descriptor.hpp"

#include <csignal>
#include <initializer_list>
#include <vector>

namespace quillmere::base {

/// Blocks signals for as long as it lives, so that they can be waited for (signalfd(2)) and have no other
/// effect. A signal that was ignored when the program started, as under nohup(1), stays ignored. At the end,
/// signals that were not taken are dropped.
class HeldSignals {
public:
    /// Throws `std::system_error` when there is no descriptor left.
    explicit HeldSignals(std::initializer_list<int> signals);
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals();

    /// For `waitFor`: readable when a signal has arrived.
    int descriptor() const noexcept { return file_.get(); }

    /// The signals since the last call. Never waits.
    std::vector<int> take() const;

private:
    sigset_t before_;
    Descriptor file_;
};

/// Ignores SIGPIPE during its lifetime: writing to a pipe without a reader fails with EPIPE and does not end
/// the process.
class BrokenPipesAreErrors {
public:
    BrokenPipesAreErrors();
    BrokenPipesAreErrors(const BrokenPipesAreErrors&) = delete;
    BrokenPipesAreErrors& operator=(const BrokenPipesAreErrors&) = delete;
    ~BrokenPipesAreErrors();

private:
    struct sigaction before_ {};
};

/// Gives a signal its default effect on this process, also while it is blocked. Ends the process, so that its
/// parent sees the signal as the cause; or stops it (SIGTSTP) and returns when it continues.
void haveUsualEffect(int signal);

}  // namespace quillmere::base
