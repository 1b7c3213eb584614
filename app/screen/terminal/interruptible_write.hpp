// Lets a signal interrupt a write to a terminal that does not read.
#pragma once

#include <csignal>

namespace quillmere::screen {

/// During its lifetime, an ending signal that is held back (HeldSignals) and stays pending for a second ends
/// this process: a write to a terminal that accepts no output, such as that of a broken connection, never
/// returns.
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
