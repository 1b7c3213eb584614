// Locks that the system refuses, and changes at the moment of locking. The linker option --wrap redirects
// flock(2) and fcntl(2) (see CMakeLists.txt).
#pragma once

#include <functional>

namespace quillmere::test {

/// During its lifetime flock(2) fails with an error, and so does fcntl(2) with F_OFD_SETLK if it has an error
/// too. Also in processes that are forked meanwhile. Only one may exist.
class RefusedLocks {
public:
    explicit RefusedLocks(int errorOfFlock, int errorOfFcntl = 0);
    RefusedLocks(const RefusedLocks&) = delete;
    RefusedLocks& operator=(const RefusedLocks&) = delete;
    ~RefusedLocks();
};

/// Calls a function once, before the next fcntl(2) with F_OFD_SETLK.
void beforeNextLock(std::function<void()> call);

}  // namespace quillmere::test
