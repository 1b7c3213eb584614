// Programs that run for the person: hooks, and what opens a screen.
#pragma once

#include <sys/types.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::app {

/// What has been started and may still run. Nothing here waits; what cannot be started, or fails, is said.
/// What they print goes where messages go, and whatever still runs when this goes is left to itself.
class Errands {
public:
    explicit Errands(std::ostream& messages) : messages_(messages) {}

    /// Has the shell run `command`, told the event's name as its first argument and in QUILLMERE_EVENT, with
    /// `summary` to read on its standard input.
    void runHook(const std::string& command, std::string_view event, std::string_view summary);

    /// Has the program `opener` open a link.
    void open(const std::string& opener, const std::string& link);

    /// Takes leave of those that have ended.
    void takeLeave();

    bool isIdle() const { return running_.empty(); }

private:
    struct Errand {
        pid_t child;
        std::string name;
    };

    void start(const std::string& name, const std::function<pid_t()>& starting);
    void sayFailure(const std::string& name, const std::string& failure);

    std::ostream& messages_;
    std::vector<Errand> running_;
};

}  // namespace quillmere::app
