// Several processes at work at once.
#pragma once

#include <functional>
#include <list>

#include "support/process.hpp"

namespace quillmere::test {

/// How many processes make a crowd.
inline constexpr int crowdSize = 8;

/// Kills those that are still at work at the end of its life.
class Crowd {
public:
    /// Begins `work` in a child process, which exits with the code that it returns.
    void join(const std::function<int()>& work);

    /// Waits until all have ended, and says whether all exited with 0. As soon as one does not, the others
    /// are killed: they might wait for it.
    bool allSucceed();

private:
    std::list<Process> atWork_;
};

}  // namespace quillmere::test
