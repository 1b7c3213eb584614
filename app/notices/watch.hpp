// Lets time pass without a screen, and tells the person what comes of it.
#pragma once

#include "base/environment.hpp"
#include "base/system/line_writer.hpp"
#include "notices/delivery_log.hpp"
#include "notices/error_throttle.hpp"
#include "notices/notifier.hpp"
#include "notices/subprocesses.hpp"
#include "workspace/open_workspace.hpp"

#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillmere::notices {

struct WatchSettings {
    bool once = false;  ///< only what is due now
    bool json = false;  ///< print events for programs
    Urgency urgency = Urgency::normal;
    std::vector<std::string> hooks = {};  ///< commands for the shell
    std::string opener = "xdg-open";      ///< a program that opens the link that it is given
    std::filesystem::path notifier = {};  ///< the program that gives notices
};

/// One loop and no threads: it sleeps until the next whole second, a change of the files, a word of the
/// notifier or a signal. After a machine has slept, the first round catches up. What it prints is a log of
/// what this one process has seen, and stands in the way of nothing.
class Watch {
public:
    Watch(workspace::Workspace workspace, base::Environment& environment, WatchSettings settings);

    /// Goes on until the process is asked to end (SIGTERM, SIGINT); with `once`, until what is due has been
    /// given, a few seconds at most. Files that cannot be used are waited for, and what comes about is told
    /// while it cannot be recorded; with `once` that throws.
    void run();

    /// One pass: brings the record up to the present, gives what is due. Never waits for anybody but the
    /// holder of the directory's lock.
    void round();

private:
    using Moment = std::chrono::steady_clock::time_point;

    void refresh();
    void refreshFailed(const std::exception& error);
    void warn(const workspace::Situation& situation);
    /// As it is recorded or, while that cannot be done, as it would be.
    const workspace::Situation& situation() const { return unrecorded_ ? *unrecorded_ : open_->situation(); }
    void tellWhatStands();
    void runHooks(const std::vector<StandingEvent>& events);
    void print(const std::vector<StandingEvent>& events);
    void print(const StandingEvent& event);
    void act(NoticeAction action);
    void openScreen();
    void extendBreak();
    /// Whether there is nothing left to wait for.
    bool isAtRest() const;
    void sleep(int signals) const;

    Clock clock_;
    base::LineWriter output_;
    base::LineWriter messages_;
    WatchSettings settings_;
    workspace::Workspace workspace_;
    std::optional<workspace::OpenWorkspace> open_;    ///< absent until the files could be read
    std::optional<workspace::Situation> unrecorded_;  ///< while only recording fails
    bool canTell_ = false;                            ///< whether the situation is that of the present
    bool canRecord_ = true;
    Moment restEnds_{};  ///< of the directory, which others may fill with changes
    DeliveryLog records_;
    bool oldRecordsAreGone_ = false;
    std::set<std::string> printed_;
    Subprocesses errands_;
    bool hooksWait_ = false;
    Notifier teller_;
    ErrorThrottle filesTrouble_;
    ErrorThrottle versionsTrouble_;
};

}  // namespace quillmere::notices
