// Lets time pass without a screen, and notifies the person.
#pragma once

#include "base/environment.hpp"
#include "base/moment.hpp"
#include "base/system/clock_changes.hpp"
#include "base/system/line_writer.hpp"
#include "base/system/wait.hpp"
#include "base/text/hours.hpp"
#include "notices/delivery_log.hpp"
#include "notices/error_throttle.hpp"
#include "notices/notifier.hpp"
#include "notices/notifier_channel.hpp"
#include "notices/subprocesses.hpp"
#include "work/slept_through.hpp"
#include "workspace/leader_lock.hpp"
#include "workspace/open_workspace.hpp"

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillmere::notices {

struct WatchSettings {
    bool once = false;  ///< deliver the events that stand now, then end
    bool json = false;  ///< print events for programs
    Urgency urgency = Urgency::normal;
    bool sound = true;                            ///< with the notices
    std::vector<double> reminderSeconds = {};     ///< config::Values::reminderSeconds
    std::vector<std::string> hooks = {};          ///< shell commands
    std::string opener = "xdg-open";              ///< the program that opens links
    base::Hours hours = base::Hours::twentyFour;  ///< for the log
    /// With other processes that hold the lock of the files.
    std::chrono::milliseconds lockPatience = workspace::DirectoryLock::usualPatience;
};

/// The events that end the wait between two rounds.
struct Waiting {
    std::vector<base::PollSource> sources;
    base::Moment until;  ///< at the latest
};

/// One loop without threads: it sleeps until something is due, a change of the files, a message of the
/// notifier or a signal, and never longer than to the next whole minute. A clock that is set wakes it, and so
/// does the end of a sleep of the machine; the first round then catches up. Its output is a log of the
/// events that this process has seen; it never blocks the loop.
class Watch {
public:
    /// Gives notices through `channel`.
    Watch(workspace::Workspace workspace, base::Environment& environment, WatchSettings settings,
          NotifierChannel& channel);

    /// Runs until the process receives SIGTERM, SIGINT or SIGHUP; with `once`, until the events that stand
    /// are delivered, a few seconds at most. Files that cannot be used are waited for, and events that cannot
    /// be recorded are delivered all the same; with `once` both are thrown as errors.
    void run();

    // The steps of `run`, which alone reads the steady clock.

    /// Records the events up to the present, delivers them, and handles what has arrived. Waits for nothing
    /// but the directory's lock.
    void round(base::Moment now);

    /// The descriptors, and the latest moment, to wait for before the next round.
    Waiting waiting(base::Moment now) const;

    /// Whether nothing is under way and nothing could be tried at once.
    bool isIdle(base::Moment now) const;

private:
    void refresh(base::Moment now);
    /// Whether to look once a second: something is under way, and its end cannot be foreseen.
    bool looksEachSecond(base::Moment now) const;
    /// When something is due by the clock; `latest` if that comes first.
    base::Moment due(base::Moment now, base::Moment latest) const;
    /// Notes a sleep of the computer in a focus session.
    void noteSleep();
    void handleRefreshError(const std::exception& error, base::Moment now);
    void reportWarning(const workspace::Situation& situation);
    void reportWatchTrouble();
    /// As recorded or, while recording fails, as it would be recorded.
    const workspace::Situation& situation() const { return unrecorded_ ? *unrecorded_ : open_->situation(); }
    void deliver(base::Moment now);
    /// The events to notify of, with those ahead, the reminders and a sleep.
    std::vector<StandingEvent> toNotify(std::vector<StandingEvent> events) const;
    void runHooks(const std::vector<StandingEvent>& events, base::Moment now);
    /// Runs a hook that has not been run for the event; false when it must wait.
    bool runHook(const std::string& command, const StandingEvent& event, workspace::LeaderLock& lock,
                 base::Moment now);
    void print(const std::vector<StandingEvent>& events);
    void print(const StandingEvent& event);
    void perform(NoticeAction action);
    void openScreen();
    void extendBreak();
    void extendFocus();
    void makeSleepAPause();
    void endBeforeSleep();
    /// Applies an operation; says `refusal` with the reason when that fails.
    void change(const workspace::Operation& operation, const std::string& refusal);

    Clock clock_;
    base::LineWriter output_;
    base::LineWriter messages_;
    WatchSettings settings_;
    workspace::Workspace workspace_;
    std::optional<workspace::OpenWorkspace> open_;    ///< absent until the files could be read
    std::optional<workspace::Situation> unrecorded_;  ///< while recording fails and reading works
    bool canDeliver_ = false;                         ///< whether `situation` is that of the present
    bool canRecord_ = true;
    base::Moment
        restEnds_{};  ///< until then changes of the directory are ignored, and errors not tried again
    DeliveryLog deliveryLog_;
    bool isLogPruned_ = false;
    base::ClockChanges clockChanges_;
    base::SleepDetector sleeps_;
    std::optional<work::SleptThrough> slept_;
    std::set<std::string> printed_;
    Subprocesses subprocesses_;
    bool hooksWait_ = false;
    Notifier notifier_;
    ErrorThrottle fileErrors_;
    ErrorThrottle versionErrors_;
    ErrorThrottle watchErrors_;
};

}  // namespace quillmere::notices
