// Programs that run for the person: hooks, and what opens a screen.
#pragma once

#include "base/system/line_writer.hpp"
#include "notices/backoff.hpp"
#include "notices/error_throttle.hpp"

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::notices {

/// What has been started and may still run. Nothing here waits; what cannot be started, or fails, is said.
/// What they print goes where messages go, and whatever still runs when this goes is left to itself.
class Subprocesses {
public:
    explicit Subprocesses(base::LineWriter& messages) : messages_(messages), hooksTrouble_(messages) {}

    /// Whether another hook may run: at most eight do at a time, and after one that could not be started
    /// there is a pause.
    bool mayRunHook();

    /// Has the shell run `command`, told the event's name as its first argument and in QUILLMERE_EVENT, with
    /// `summary` to read on its standard input. Whether it was started.
    bool runHook(const std::string& command, std::string_view event, std::string_view summary);

    /// Says that all is well with hooks again, if it was said that it is not.
    void noHookWaits();

    /// Has the program `opener` open a link.
    void open(const std::string& opener, const std::string& link);

    /// Takes leave of those that have ended.
    void takeLeave();

    bool isIdle() const { return running_.empty(); }

private:
    struct Errand {
        pid_t child;
        std::string name;
        bool isHook;
    };

    void sayFailure(const std::string& name, const std::string& failure);

    base::LineWriter& messages_;
    ErrorThrottle hooksTrouble_;
    Backoff starting_;
    std::vector<Errand> running_;
};

}  // namespace quillmere::notices
