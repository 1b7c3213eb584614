#include "notices/notifier.hpp"

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
    const char* label;
};

// "default" is what a click on the notice itself means.
constexpr auto actionRows = std::to_array<ActionRow>({
    {NoticeAction::open, "default", "Open"},
    {NoticeAction::extendBreak, "extend", "Extend by 5 minutes"},
});

/// Key and label in turn.
std::vector<std::string> actionsOn(const Notice& notice)
{
    std::vector<std::string> actions;
    for (const ActionRow& row : actionRows) {
        if (row.action != NoticeAction::extendBreak || notice.mayExtendBreak) {
            actions.insert(actions.end(), {row.key, row.label});
        }
    }
    return actions;
}

NotifierProcess::Moment presentMoment() { return std::chrono::steady_clock::now(); }

}  // namespace

Notifier::Notifier(const TellerSettings& settings, DeliveryLog& records, base::LineWriter& messages)
    : urgency_(settings.urgency),
      offersActions_(settings.offersActions),
      records_(records),
      notifier_(settings.notifier),
      turn_(records.directory()),
      shown_(settings.shownFile),
      trouble_(messages)
{
}

void Notifier::tell(const Events& events)
{
    due_ = dueNotices(events);
    // A predecessor's notices may be on the screen, with actions that somebody must hear.
    const bool hasToListen = offersActions_ && !shown_.isEmpty();
    if (!underWay_.empty() || (due_.empty() && !hasToListen)) {
        return;
    }
    if (!notifier_.isRunning()) {
        start();
    } else if (notifier_.isReady() && takeTurn()) {
        // Whoever had the turn before may have told some of it.
        due_ = dueNotices(events);
        const auto next =
            std::find_if(due_.begin(), due_.end(), [this](const Events& notice) { return mayTry(notice); });
        if (next != due_.end()) {
            give(*next);
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
        // The new ones first, as a long notice is cut; those told before are repeated, as it replaces theirs.
        const auto toldBefore =
            std::stable_partition(notice.begin(), notice.end(),
                                  [this](const StandingEvent& event) { return !records_.has(event.key); });
        if (toldBefore != notice.begin()) {
            notices.push_back(std::move(notice));
        }
    }
    return notices;
}

bool Notifier::mayTry(const Events& notice) const
{
    const auto failure = failures_.find(subjectOf(notice.front().kind));
    return failure == failures_.end() || failure->second.keys != keysOf(notice) ||
           !failure->second.backoff.isPausing(presentMoment());
}

void Notifier::start()
{
    if (connecting_.isPausing(presentMoment())) {
        return;
    }
    try {
        notifier_.start(presentMoment());
    } catch (const std::system_error& error) {
        connecting_.failed(presentMoment());
        meet({.kind = NotifierWordKind::ended, .text = error.what()});
    }
}

bool Notifier::takeTurn()
{
    if (!turn_.isHad() && turn_.take()) {
        shown_.read(service_);
    }
    return turn_.isHad();
}

void Notifier::give(const Events& notice)
{
    underWay_ = notice;
    const Notice text = noticeOf(notice);
    notifier_.give({.replaces = shown_.numberOf(subjectOf(notice.front().kind)),
                    .heading = text.heading,
                    .body = text.body,
                    .urgency = static_cast<std::uint8_t>(urgency_),
                    .actions = offersActions_ ? actionsOn(text) : std::vector<std::string>()},
                   presentMoment());
}

std::vector<NoticeAction> Notifier::listen()
{
    std::vector<NoticeAction> actions;
    for (const NotifierWord& word : notifier_.words(presentMoment())) {
        hear(word, actions);
    }
    return actions;
}

void Notifier::hear(const NotifierWord& word, std::vector<NoticeAction>& actions)
{
    switch (word.kind) {
        case NotifierWordKind::ready:
            service_ = word.text;
            connecting_.worked();
            break;
        case NotifierWordKind::given:
            shown_.show(subjectOf(underWay_.front().kind), word.number);
            isTold();
            trouble_.isOver("Notices can be given again.");
            break;
        case NotifierWordKind::unanswered:
            // It may be on the screen.
            isTold();
            meet(word);
            break;
        case NotifierWordKind::failed:
            isNotTold();
            meet(word);
            break;
        case NotifierWordKind::ended:
            isNotTold();
            meet(word);
            connecting_.failed(presentMoment());
            turn_.giveBack();
            shown_.forget();
            break;
        case NotifierWordKind::action: hearAction(word, actions); break;
        case NotifierWordKind::closed:
            if (turn_.isHad()) {
                shown_.close(word.number);
            }
            break;
    }
}

void Notifier::hearAction(const NotifierWord& word, std::vector<NoticeAction>& actions) const
{
    // The service tells everybody about everybody's notices.
    if (turn_.isHad() && shown_.has(word.number)) {
        for (const ActionRow& row : actionRows) {
            if (word.text == row.key) {
                actions.push_back(row.action);
            }
        }
    }
}

void Notifier::isTold()
{
    for (const StandingEvent& event : underWay_) {
        records_.make(event.key);
    }
    failures_.erase(subjectOf(underWay_.front().kind));
    underWay_.clear();
}

void Notifier::isNotTold()
{
    if (!underWay_.empty()) {
        Failure& failure = failures_[subjectOf(underWay_.front().kind)];
        if (failure.keys != keysOf(underWay_)) {
            failure = {.keys = keysOf(underWay_)};
        }
        failure.backoff.failed(presentMoment());
        underWay_.clear();
    }
}

void Notifier::meet(const NotifierWord& word)
{
    if (!word.text.empty()) {
        trouble_.met(word.error.empty() ? word.text : word.error,
                     "Notices cannot be given now: " + word.text + ".");
    }
}

bool Notifier::isAtRest() const
{
    return underWay_.empty() &&
           (connecting_.isPausing(presentMoment()) ||
            std::none_of(due_.begin(), due_.end(), [this](const Events& notice) { return mayTry(notice); }));
}

}  // namespace quillmere::notices
