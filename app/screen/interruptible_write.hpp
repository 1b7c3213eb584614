// Writing to a terminal that may not read.
#pragma once

#include <csignal>

namespace quillmere::screen {

/// While it lives, a signal to end that is held back (HeldSignals) and waits for a second ends this process:
/// what is written to a terminal that takes nothing, such as that of a broken connection, is never done.
class InterruptibleWrite {
public:
    InterruptibleWrite();
    InterruptibleWrite(const InterruptibleWrite&) = delete;
    InterruptibleWrite& operator=(const InterruptibleWrite&) = delete;
    ~InterruptibleWrite();

private:
    struct sigaction before_ {};
};

}  // namespace quillmere::screen
