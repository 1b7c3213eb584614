// A process at work, read line by line as a bar reads it.
#pragma once

#include <sys/types.h>

#include <string>

#include "program_testing.hpp"

namespace quillmere::test {

class RunningProcess {
public:
    /// Runs `words`, the first of which is looked for on the path. `pipeIsFull`: there is no room for any
    /// line until something is read.
    explicit RunningProcess(const Words& words, bool pipeIsFull = false);
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;
    /// Kills it when nobody has waited for it.
    ~RunningProcess();

    /// The next line, without its end; fails the test when none comes.
    std::string line();

    /// Whether there is something to be read already.
    bool hasMore() const;

    void send(int signal) const;

    /// Goes away, as a bar that ends.
    void stopReading();

    /// Returns when the process holds back the signal, or has ended.
    void awaitHoldingBack(int signal) const;

    /// Returns when the process is asleep.
    void awaitSleep() const;

    /// How often the process has gone to sleep.
    long sleeps() const;

    /// Returns when it has done so more often.
    void awaitSleepAfter(long sleepsBefore) const;

    /// Waits for the end, which fails the test when it does not come: the exit code, or 128 and the signal.
    int wait();

private:
    /// What the kernel tells of the process (proc(5)).
    std::string status(const std::string& name) const;

    pid_t process_ = -1;
    int reading_ = -1;
    std::string unread_;
};

/// Whether a program of that name is on the path and can say its version with `-V`.
bool isInstalled(const std::string& name);

/// `quillmere bar --follow` with these words behind it.
Words followingBar(const Words& words);

}  // namespace quillmere::test
