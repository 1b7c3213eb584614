// Notifies the person of the events that stand.
#pragma once

#include "notices/backoff.hpp"
#include "notices/delivery_log.hpp"
#include "notices/error_throttle.hpp"
#include "notices/notice.hpp"
#include "notices/notifier_channel.hpp"
#include "notices/shown_notices.hpp"
#include "workspace/leader_lock.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quillmere::notices {

/// The numbers are those of Desktop Notifications 1.2 (freedesktop.org).
enum class Urgency : std::uint8_t { low = 0, normal = 1, critical = 2 };

struct NotifierSettings {
    Urgency urgency;
    bool hasSound;                    ///< false: every notice is silent
    bool offersActions;               ///< false when this process ends before a choice could reach it
    std::filesystem::path shownFile;  ///< for ShownNotices
};

/// Gives one notice per subject for the events that have no record. They are recorded just before, and the
/// records are removed when the notice could not be given: a notice is given at most once, even when this
/// process is killed. Of all notifiers of a directory one is the leader and gives notices: the first whose
/// channel is ready, for as long as that lasts. Bus and service may be absent, slow or broken: a notice that
/// could not be given is tried again with growing pauses while its events stand. An error is reported once,
/// and so is its end. No operation waits.
class Notifier {
public:
    Notifier(const NotifierSettings& settings, DeliveryLog& deliveryLog, NotifierChannel& channel,
             base::LineWriter& messages);

    /// Gives the notices for `events` that can be given now. One notice at a time is under way; the next
    /// follows in a later call.
    void notify(const std::vector<StandingEvent>& events, base::Moment now);

    /// Handles the notifier's messages; returns the person's choices.
    std::vector<NoticeAction> takeActions(base::Moment now);

    /// For `base::waitFor`; -1: nothing to wait for.
    int descriptor() const { return channel_.descriptor(); }

    /// Whether no notice is under way and none could be tried at once.
    bool isIdle(base::Moment now) const;

    /// When a notice that could not be given is tried again; absent while there is none.
    std::optional<base::Moment> nextTry(base::Moment now) const;

private:
    using Events = std::vector<StandingEvent>;  ///< the events of one notice

    /// A notice that could not be given.
    struct Failure {
        std::vector<std::string> keys = {};
        Backoff backoff = {};
    };

    std::vector<Events> dueNotices(const Events& events) const;
    bool mayTry(const Events& notice, base::Moment now) const;
    void startChannel(base::Moment now);
    bool tryToLead();
    void send(const Events& notice, base::Moment now);
    void handle(const NotifierMessage& message, base::Moment now, std::vector<NoticeAction>& actions);
    void handleAction(const NotifierMessage& message, std::vector<NoticeAction>& actions) const;
    /// The text of the notice. The first notice of an event is no reminder.
    Notice textOf(Events notice) const;
    /// Records the events; false when another process has recorded them all meanwhile.
    bool recordDelivery(const Events& notice);
    /// Ends the notice under way, which was given.
    void completeDelivery();
    /// Leaves the notice under way, if there is one, for a later try.
    void postponeDelivery(base::Moment now);
    void reportError(const NotifierMessage& message);

    Urgency urgency_;
    bool hasSound_;
    bool offersActions_;
    DeliveryLog& deliveryLog_;
    NotifierChannel& channel_;
    std::string service_;  ///< identifies the service of the channel, once that is ready
    workspace::LeaderLock leaderLock_;
    ShownNotices shown_;
    ErrorThrottle errors_;
    std::vector<Events> due_;  ///< as of the last `notify`
    Events underWay_;
    std::vector<std::string> recorded_;  ///< the keys that were recorded for the notice under way
    std::map<NoticeSubject, Failure> failures_;
    Backoff connecting_;
};

}  // namespace quillmere::notices
