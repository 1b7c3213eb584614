// New files and directories for their owner alone.
#pragma once

#include <sys/stat.h>

namespace quillmere::base {

/// Sets the umask to 077 and restores it at the end of the scope, so that a file or directory created in
/// between is never open to others, not even before its mode is set. Files that a person asks for (exports),
/// and processes that are started, keep the umask of the person. The umask belongs to the process: not for
/// programs with threads.
class PrivateUmask {
public:
    PrivateUmask() : previous_(::umask(S_IRWXG | S_IRWXO)) {}
    PrivateUmask(const PrivateUmask&) = delete;
    PrivateUmask& operator=(const PrivateUmask&) = delete;
    ~PrivateUmask() { ::umask(previous_); }

private:
    mode_t previous_;
};

}  // namespace quillmere::base
