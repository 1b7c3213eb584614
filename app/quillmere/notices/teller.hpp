// Tells the person what stands.
#pragma once

#include "notices/notice.hpp"
#include "notices/notifier.hpp"
#include "notices/outbox.hpp"
#include "notices/trouble.hpp"

#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace quillmere::app {

/// As Desktop Notifications 1.2 (freedesktop.org) numbers them.
enum class Urgency : std::uint8_t { low = 0, normal = 1, critical = 2 };

/// What a person may choose on a notice.
enum class NoticeAction { open, extendBreak };

/// Keeps what is to be told until it has been: bus and service may be absent, slow or broken. Starts the
/// notifier when there is something to tell, and again and again while that cannot be done. What is wrong is
/// said once, and once that it works again. Nothing here waits.
class Teller {
public:
    Teller(std::filesystem::path notifier, Urgency urgency, std::ostream& messages);

    /// Takes over an event that was claimed.
    void add(const StandingEvent& event) { outbox_.add({event}); }

    /// Tells what can be told now, and forgets what does not stand any more.
    void tell(const std::vector<StandingEvent>& standing, const QuillmereState& state);

    /// Hears what has become of the notices; what the person chose on them.
    std::vector<NoticeAction> listen();

    /// For poll(2); -1: there is nothing to wait for.
    int descriptor() const { return notifier_.descriptor(); }

    /// Whether nothing is under way, and nothing more to be tried at once.
    bool isAtRest(const QuillmereState& state) const;

    /// What was never given, not even to a service that did not answer.
    const std::vector<StandingEvent>& untold() const { return outbox_.events(); }

private:
    void give();
    void hear(const NotifierWord& word, std::vector<NoticeAction>& actions);
    void failed(const std::string& reason);
    bool isPausing() const;

    Notifier notifier_;
    Urgency urgency_;
    Trouble trouble_;
    Outbox outbox_;
    std::vector<StandingEvent> underWay_;
    std::map<NoticeSubject, std::uint32_t> shown_;  ///< the numbers of the notices on the screen
    Notifier::Moment pauseEnds_{};
};

}  // namespace quillmere::app
