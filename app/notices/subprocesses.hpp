// The person's programs: hooks, and the program that opens links.
#pragma once

#include "base/moment.hpp"
#include "base/system/line_writer.hpp"
#include "notices/backoff.hpp"
#include "notices/error_throttle.hpp"

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::notices {

/// Starts programs and reaps them. No operation waits; a program that cannot be started or fails is reported.
/// The output of the programs goes where this process's messages go. Programs still running at the end of
/// this object keep running.
class Subprocesses {
public:
    explicit Subprocesses(base::LineWriter& messages) : messages_(messages), hookErrors_(messages) {}

    /// Whether another hook may be started: at most eight run at a time, and a failed start is followed by a
    /// pause.
    bool mayRunHook(base::Moment now);

    /// Starts `command` in a shell, with the event's name as its first argument and in QUILLMERE_EVENT, and
    /// with `summary` on its standard input. False when it cannot be started.
    bool runHook(const std::string& command, std::string_view event, std::string_view summary,
                 base::Moment now);

    /// To be called when no hook waits: ends the error that was reported for waiting hooks.
    void reportNoHookWaits();

    /// Starts `opener` with a link as its argument.
    void openLink(const std::string& opener, const std::string& link);

    /// Reaps the programs that have ended.
    void reap();

    bool isIdle() const { return running_.empty(); }

private:
    struct Running {
        pid_t child;
        std::string name;
        bool isHook;
    };

    void reportFailure(const std::string& name, const std::string& failure);

    base::LineWriter& messages_;
    ErrorThrottle hookErrors_;
    Backoff starting_;
    std::vector<Running> running_;
};

}  // namespace quillmere::notices
