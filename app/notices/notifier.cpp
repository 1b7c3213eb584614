#include "notices/notifier.hpp"

#include "base/text/duration.hpp"
#include "notices/said_again.hpp"
#include "work/break_extension.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

struct ActionRow {
    NoticeAction action;
    const char* key;
};

// A click on the notice itself chooses "default".
constexpr auto actionRows = std::to_array<ActionRow>({
    {NoticeAction::open, "default"},
    {NoticeAction::extendBreak, "extend"},
    {NoticeAction::extendFocus, "extend-focus"},
    {NoticeAction::makeSleepAPause, "sleep-was-pause"},
    {NoticeAction::endBeforeSleep, "end-before-sleep"},
});

std::string label(NoticeAction action)
{
    switch (action) {
        case NoticeAction::open: return "Open";
        case NoticeAction::extendBreak: return "Extend by " + base::durationText(work::usualExtension);
        case NoticeAction::extendFocus: return "10 more minutes";
        case NoticeAction::makeSleepAPause: return "Count it as a pause";
        case NoticeAction::endBeforeSleep: break;
    }
    return "It ended before the sleep";
}

/// Alternating keys and labels.
std::vector<std::string> actionsOn(const Notice& notice)
{
    std::vector<std::string> actions;
    for (const ActionRow& row : actionRows) {
        if (row.action == NoticeAction::open || row.action == notice.offer) {
            actions.insert(actions.end(), {row.key, label(row.action)});
        }
    }
    return actions;
}

}  // namespace

Notifier::Notifier(const NotifierSettings& settings, DeliveryLog& deliveryLog, NotifierChannel& channel,
                   base::LineWriter& messages)
    : urgency_(settings.urgency),
      hasSound_(settings.hasSound),
      offersActions_(settings.offersActions),
      deliveryLog_(deliveryLog),
      channel_(channel),
      leaderLock_(deliveryLog.directory()),
      shown_(settings.shownFile),
      errors_(messages)
{
}

void Notifier::notify(const Events& events, base::Moment now)
{
    due_ = dueNotices(events);
    // Notices of an earlier process may be on the screen; choices on them arrive only while the channel runs.
    const bool mustListen = offersActions_ && !shown_.isEmpty();
    if (!underWay_.empty() || (due_.empty() && !mustListen)) {
        return;
    }
    if (!channel_.isRunning()) {
        startChannel(now);
    } else if (channel_.isReady() && tryToLead()) {
        // The previous leader may have given some of them.
        due_ = dueNotices(events);
        const auto next =
            std::find_if(due_.begin(), due_.end(), [&](const Events& notice) { return mayTry(notice, now); });
        if (next != due_.end()) {
            send(*next, now);
        }
    }
}

std::vector<Notifier::Events> Notifier::dueNotices(const Events& events) const
{
    std::vector<Events> notices;
    for (const NoticeSubject subject : {NoticeSubject::work, NoticeSubject::questions}) {
        Events notice;
        std::copy_if(events.begin(), events.end(), std::back_inserter(notice),
                     [&](const StandingEvent& event) { return subjectOf(event.kind) == subject; });
        // New events first, because a long notice is cut. Delivered ones are repeated, because this notice
        // replaces theirs.
        const auto delivered = std::stable_partition(
            notice.begin(), notice.end(),
            [this](const StandingEvent& event) { return !deliveryLog_.has(deliveryKey(event)); });
        if (delivered != notice.begin()) {
            notices.push_back(std::move(notice));
        }
    }
    return notices;
}

bool Notifier::mayTry(const Events& notice, base::Moment now) const
{
    const auto failure = failures_.find(subjectOf(notice.front().kind));
    return failure == failures_.end() || failure->second.keys != keysOf(notice) ||
           !failure->second.backoff.isPausing(now);
}

void Notifier::startChannel(base::Moment now)
{
    if (connecting_.isPausing(now)) {
        return;
    }
    try {
        channel_.start(now);
    } catch (const std::system_error& error) {
        connecting_.failed(now);
        reportError({.kind = NotifierMessageKind::ended, .text = error.what()});
    }
}

bool Notifier::tryToLead()
{
    if (!leaderLock_.isHeld() && leaderLock_.tryAcquire()) {
        shown_.read(service_);
    }
    return leaderLock_.isHeld();
}

void Notifier::send(const Events& notice, base::Moment now)
{
    const Notice text = textOf(notice);
    if (!recordDelivery(notice)) {
        return;
    }
    underWay_ = notice;
    channel_.send({.replaces = shown_.numberOf(subjectOf(notice.front().kind)),
                   .heading = text.heading,
                   .body = text.body,
                   .urgency = static_cast<std::uint8_t>(text.isQuiet ? Urgency::low : urgency_),
                   .actions = offersActions_ ? actionsOn(text) : std::vector<std::string>(),
                   .sound = std::string(hasSound_ ? text.sound : "")},
                  now);
}

Notice Notifier::textOf(Events notice) const
{
    for (StandingEvent& event : notice) {
        if (!deliveryLog_.has(event.key)) {
            event.reminder.reset();
        }
    }
    return noticeOf(notice);
}

std::vector<NoticeAction> Notifier::takeActions(base::Moment now)
{
    std::vector<NoticeAction> actions;
    for (const NotifierMessage& message : channel_.takeMessages(now)) {
        handle(message, now, actions);
    }
    return actions;
}

void Notifier::handle(const NotifierMessage& message, base::Moment now, std::vector<NoticeAction>& actions)
{
    switch (message.kind) {
        case NotifierMessageKind::ready:
            service_ = message.text;
            connecting_.succeeded();
            break;
        case NotifierMessageKind::given:
            shown_.show(subjectOf(underWay_.front().kind), message.number);
            completeDelivery();
            errors_.resolve("Notices can be given again.");
            break;
        case NotifierMessageKind::unanswered:
            // The notice may be on the screen; it is not given a second time.
            completeDelivery();
            reportError(message);
            break;
        case NotifierMessageKind::failed:
            postponeDelivery(now);
            reportError(message);
            break;
        case NotifierMessageKind::ended:
            postponeDelivery(now);
            reportError(message);
            connecting_.failed(now);
            leaderLock_.release();
            shown_.forget();
            break;
        case NotifierMessageKind::action: handleAction(message, actions); break;
        case NotifierMessageKind::closed:
            if (leaderLock_.isHeld()) {
                shown_.close(message.number);
            }
            break;
    }
}

void Notifier::handleAction(const NotifierMessage& message, std::vector<NoticeAction>& actions) const
{
    // A service sends its signals about the notices of all programs to all programs.
    if (leaderLock_.isHeld() && shown_.has(message.number)) {
        for (const ActionRow& row : actionRows) {
            if (message.text == row.key) {
                actions.push_back(row.action);
            }
        }
    }
}

bool Notifier::recordDelivery(const Events& notice)
{
    for (const StandingEvent& event : notice) {
        for (const std::string& key : deliveryKeys(event)) {
            if (deliveryLog_.record(key)) {
                recorded_.push_back(key);
            }
        }
    }
    return !recorded_.empty();
}

void Notifier::completeDelivery()
{
    recorded_.clear();
    failures_.erase(subjectOf(underWay_.front().kind));
    underWay_.clear();
}

void Notifier::postponeDelivery(base::Moment now)
{
    if (!underWay_.empty()) {
        Failure& failure = failures_[subjectOf(underWay_.front().kind)];
        if (failure.keys != keysOf(underWay_)) {
            failure = {.keys = keysOf(underWay_)};
        }
        failure.backoff.failed(now);
        underWay_.clear();
    }
    for (const std::string& key : std::exchange(recorded_, {})) {
        deliveryLog_.remove(key);
    }
}

void Notifier::reportError(const NotifierMessage& message)
{
    if (!message.text.empty()) {
        errors_.report(message.error.empty() ? message.text : message.error,
                       "Notices cannot be given now: " + message.text + ".");
    }
}

std::optional<base::Moment> Notifier::nextTry(base::Moment now) const
{
    std::vector<base::Moment> ends;
    if (!due_.empty()) {
        ends.push_back(connecting_.end());
        for (const auto& [subject, failure] : failures_) {
            ends.push_back(failure.backoff.end());
        }
    }
    std::erase_if(ends, [now](base::Moment end) { return end <= now; });
    const auto next = std::min_element(ends.begin(), ends.end());
    return next == ends.end() ? std::nullopt : std::optional(*next);
}

bool Notifier::isIdle(base::Moment now) const
{
    return underWay_.empty() && (connecting_.isPausing(now) ||
                                 std::none_of(due_.begin(), due_.end(),
                                              [&](const Events& notice) { return mayTry(notice, now); }));
}

}  // namespace quillmere::notices
