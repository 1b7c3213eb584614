// The first half of a child's life, from fork(2) to exec(3).
#pragma once

#include <sys/types.h>

#include "support/descriptor.hpp"
#include "support/process.hpp"

namespace quillmere::test {

/// The test's ends of the child's channels.
struct StartedProcess {
    pid_t process = -1;
    Descriptor input;   ///< to write to
    Descriptor output;  ///< to read from
    Descriptor capturedOut;
    Descriptor capturedErr;
};

/// Throws `std::system_error` when the program cannot be started.
StartedProcess startProcess(const ProcessOptions& options);

}  // namespace quillmere::test
