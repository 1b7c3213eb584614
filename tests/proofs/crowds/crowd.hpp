// Several child processes running at the same time.
#pragma once

#include <functional>
#include <list>

#include "support/process.hpp"

namespace quillmere::test {

/// The number of processes in a crowd.
inline constexpr int crowdSize = 8;

/// The destructor kills the processes that still run.
class Crowd {
public:
    /// Runs `work` in a child process, which exits with the returned code.
    void join(const std::function<int()>& work);

    /// Waits until all processes have ended and returns whether all exited with 0. After the first failure
    /// kills the others, which might wait for the failed one.
    bool allSucceed();

private:
    std::list<Process> atWork_;
};

}  // namespace quillmere::test
