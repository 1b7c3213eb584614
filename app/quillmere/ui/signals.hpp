// Signals as something that can be waited for among other things.
#pragma once

#include <signal.h>

#include <vector>

namespace quillmere::app::ui {

/// Holds back the signals that end a program, stop it or tell of its terminal, for as long as it lives, and
/// hands them out instead (signalfd(2)).
class Signals {
public:
    Signals();
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;
    ~Signals();

    /// For poll(2): readable when one has come.
    int descriptor() const { return descriptor_; }

    /// Those that have come since the last call. Never waits.
    std::vector<int> take();

    /// Stops the process as Control-Z does, until it is told to go on.
    void stop();

private:
    sigset_t before_;
    int descriptor_;
};

/// Ends the process by a signal, so that whoever waits for it learns of it. Returns when the signal is
/// ignored.
void endBySignal(int signal);

}  // namespace quillmere::app::ui
