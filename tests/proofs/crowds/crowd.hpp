// Several processes at work at once.
#pragma once

#include <sys/types.h>

#include <functional>
#include <vector>

namespace quillmere::test {

/// How many make a crowd.
inline constexpr int crowdSize = 8;

class Crowd {
public:
    Crowd() = default;
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;
    /// Kills those that are still at work.
    ~Crowd();

    /// Begins `work` in a process of its own, which ends with the code that it returns.
    void join(const std::function<int()>& work);

    /// Waits until all have ended, and says whether all ended with 0. As soon as one does not, the others
    /// are killed: they might wait for it.
    bool allSucceed();

private:
    void killAll();

    std::vector<pid_t> atWork_;
};

}  // namespace quillmere::test
