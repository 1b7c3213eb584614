// The status of a child process, from the kernel (proc(5)).
#pragma once

#include "support/process.hpp"

namespace quillmere::test {

bool blocksSignal(const Process& process, int signal);

bool isAsleep(const Process& process);

/// How often the process has gone to sleep.
long sleepCount(const Process& process);

}  // namespace quillmere::test
