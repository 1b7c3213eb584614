// Tells the person what stands.
#pragma once

#include "notices/backoff.hpp"
#include "notices/delivery_log.hpp"
#include "notices/error_throttle.hpp"
#include "notices/notice.hpp"
#include "notices/notifier_process.hpp"
#include "notices/shown_notices.hpp"
#include "workspace/leader_lock.hpp"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quillmere::notices {

/// As Desktop Notifications 1.2 (freedesktop.org) numbers them.
enum class Urgency : std::uint8_t { low = 0, normal = 1, critical = 2 };

/// What a person may choose on a notice.
enum class NoticeAction { open, extendBreak };

struct TellerSettings {
    std::filesystem::path notifier;
    Urgency urgency;
    bool offersActions;               ///< somebody stays to hear what is chosen
    std::filesystem::path shownFile;  ///< ShownNotices
};

/// Tells what has no record, in one notice a subject, and makes the record once it is told. Of all tellers of
/// a directory one tells: the first whose notifier is ready, for as long as that is. Bus and service may be
/// absent, slow or broken: what could not be told is tried again, after longer and longer pauses, while it
/// stands. What is wrong is said once, and once that it works again. Nothing here waits.
class Notifier {
public:
    Notifier(const TellerSettings& settings, DeliveryLog& records, base::LineWriter& messages);

    /// Tells what can be told now, of all that may be told.
    void tell(const std::vector<StandingEvent>& events);

    /// Hears what has become of the notices; what the person chose on them.
    std::vector<NoticeAction> listen();

    /// For poll(2); -1: there is nothing to wait for.
    int descriptor() const { return notifier_.descriptor(); }

    /// Whether nothing is under way, and nothing more to be tried at once.
    bool isAtRest() const;

private:
    using Events = std::vector<StandingEvent>;  ///< what is told in one notice

    /// A notice that could not be given.
    struct Failure {
        std::vector<std::string> keys = {};
        Backoff backoff = {};
    };

    std::vector<Events> dueNotices(const Events& events) const;
    bool mayTry(const Events& notice) const;
    void start();
    bool takeTurn();
    void give(const Events& notice);
    void hear(const NotifierWord& word, std::vector<NoticeAction>& actions);
    void hearAction(const NotifierWord& word, std::vector<NoticeAction>& actions) const;
    /// Makes the records of what is under way.
    void isTold();
    /// Leaves what is under way for later.
    void isNotTold();
    void meet(const NotifierWord& word);

    Urgency urgency_;
    bool offersActions_;
    DeliveryLog& records_;
    NotifierProcess notifier_;
    std::string service_;  ///< that of the notifier, once it is ready
    workspace::LeaderLock turn_;
    ShownNotices shown_;
    ErrorThrottle trouble_;
    std::vector<Events> due_;  ///< as of the last `tell`
    Events underWay_;
    std::map<NoticeSubject, Failure> failures_;
    Backoff connecting_;
};

}  // namespace quillmere::notices
