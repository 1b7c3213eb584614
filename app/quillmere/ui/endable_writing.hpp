// Writing to a terminal that may not read.
#pragma once

#include <csignal>

namespace quillmere::app::ui {

/// While it lives, a signal to end that is held back (HeldSignals) and waits for a second ends this process:
/// what is written to a terminal that takes nothing, such as that of a broken connection, is never done.
class EndableWriting {
public:
    EndableWriting();
    EndableWriting(const EndableWriting&) = delete;
    EndableWriting& operator=(const EndableWriting&) = delete;
    ~EndableWriting();

private:
    struct sigaction before_ {};
};

}  // namespace quillmere::app::ui
