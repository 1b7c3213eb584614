// Starting a child process, from fork(2) to exec(3).
#pragma once

#include <sys/types.h>

#include "support/descriptor.hpp"
#include "support/process.hpp"

namespace quillmere::test {

/// The test's ends of the child's channels.
struct StartedProcess {
    pid_t process = -1;
    Descriptor input;   ///< the write end of the child's input
    Descriptor output;  ///< the read end of the child's output
    Descriptor capturedOut;
    Descriptor capturedErr;
};

/// Throws `std::system_error` when the program cannot be started.
StartedProcess startProcess(const ProcessOptions& options);

}  // namespace quillmere::test
