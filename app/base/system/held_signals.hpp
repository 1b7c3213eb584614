// Signals that a program waits for like anything else.
#pragma once

#include "base/system/descriptor.hpp"

#include <csignal>
#include <initializer_list>
#include <vector>

namespace quillmere::base {

/// Holds back signals for as long as it lives: they do nothing but can be waited for (signalfd(2)). One that
/// the program was started to ignore, as nohup(1) has it, is still ignored. What has come and was not taken
/// is forgotten.
class HeldSignals {
public:
    /// Throws `std::system_error` when the system has no descriptor for it.
    explicit HeldSignals(std::initializer_list<int> signals);
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals();

    /// For poll(2): readable when one has come.
    int descriptor() const noexcept { return file_.get(); }

    /// Those that have come since the last call. Never waits.
    std::vector<int> take() const;

private:
    sigset_t before_;
    Descriptor file_;
};

/// While it lives, writing where nobody reads is an error (EPIPE), not an end by SIGPIPE.
class BrokenPipesAreErrors {
public:
    BrokenPipesAreErrors();
    BrokenPipesAreErrors(const BrokenPipesAreErrors&) = delete;
    BrokenPipesAreErrors& operator=(const BrokenPipesAreErrors&) = delete;
    ~BrokenPipesAreErrors();

private:
    struct sigaction before_ {};
};

/// Does to this process what a signal does by default, also when it is held: ends it, so that whoever waits
/// for it learns why, or stops it until it is told to go on, and returns.
void haveUsualEffect(int signal);

}  // namespace quillmere::base
