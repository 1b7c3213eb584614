// The keys of a terminal that send signals, while another program has the terminal.
#pragma once

#include <csignal>

namespace quillmere::cli {

/// While it exists, control-C on the terminal reaches the other program alone.
class IgnoredKeySignals {
public:
    IgnoredKeySignals() : interrupt_(std::signal(SIGINT, SIG_IGN)), quit_(std::signal(SIGQUIT, SIG_IGN)) {}
    IgnoredKeySignals(const IgnoredKeySignals&) = delete;
    IgnoredKeySignals& operator=(const IgnoredKeySignals&) = delete;
    ~IgnoredKeySignals()
    {
        std::signal(SIGINT, interrupt_);
        std::signal(SIGQUIT, quit_);
    }

private:
    void (*interrupt_)(int);
    void (*quit_)(int);
};

}  // namespace quillmere::cli
