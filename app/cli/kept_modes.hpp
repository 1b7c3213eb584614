// The modes of a terminal, given back at the end.
#pragma once

#include "screen/keys/key.hpp"

#include <termios.h>

#include <csignal>

namespace quillmere::cli {

/// Gives the terminal its modes back (tcsetattr(3)). What is typed ahead stays.
class KeptModes {
public:
    explicit KeptModes(int terminal) : terminal_(terminal) { isKept_ = ::tcgetattr(terminal, &modes_) == 0; }
    KeptModes(const KeptModes&) = delete;
    KeptModes& operator=(const KeptModes&) = delete;
    ~KeptModes()
    {
        if (isKept_) {
            ::tcsetattr(terminal_, TCSADRAIN, &modes_);
        }
    }

    /// The signal that the terminal would send for a key; 0 for none.
    int signalOf(const screen::Key& key) const
    {
        if (key.kind != screen::Key::Kind::control) {
            return 0;
        }
        const auto byte = static_cast<cc_t>(key.text[0] - 'a' + 1);
        return byte == modes_.c_cc[VINTR] ? SIGINT : byte == modes_.c_cc[VSUSP] ? SIGTSTP : 0;
    }

private:
    int terminal_;
    bool isKept_;
    termios modes_{};
};

}  // namespace quillmere::cli
