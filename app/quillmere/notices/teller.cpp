#include "notices/teller.hpp"

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::app {
namespace {

using namespace std::chrono_literals;

constexpr auto pauseBetweenAttempts = 2s;

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

NoticeRequest requestOf(const Notice& notice, Urgency urgency, std::uint32_t replaces)
{
    NoticeRequest request{.replaces = replaces,
                          .heading = notice.heading,
                          .body = notice.body,
                          .urgency = static_cast<std::uint8_t>(urgency),
                          .actions = {}};
    for (const ActionRow& row : actionRows) {
        if (row.action != NoticeAction::extendBreak || notice.mayExtendBreak) {
            request.actions.insert(request.actions.end(), {row.key, row.label});
        }
    }
    return request;
}

Notifier::Moment presentMoment() { return std::chrono::steady_clock::now(); }

}  // namespace

Teller::Teller(std::filesystem::path notifier, Urgency urgency, std::ostream& messages)
    : notifier_(std::move(notifier)), urgency_(urgency), trouble_(messages)
{
}

void Teller::tell(const std::vector<StandingEvent>& standing, const QuillmereState& state)
{
    outbox_.keepOnly(standing);
    if (!underWay_.empty() || isPausing() || !outbox_.hasNext(state)) {
        return;
    }
    if (notifier_.isConnected()) {
        // Not before it is connected: until then things may change.
        underWay_ = outbox_.takeNext(state);
        give();
    } else if (!notifier_.isRunning()) {
        try {
            notifier_.start(presentMoment());
        } catch (const std::system_error& error) {
            failed(error.what());
        }
    }
}

void Teller::give()
{
    const auto shown = shown_.find(subjectOf(underWay_.front().kind));
    const std::uint32_t replaced = shown == shown_.end() ? 0 : shown->second;
    notifier_.give(requestOf(noticeOf(underWay_), urgency_, replaced), presentMoment());
}

std::vector<NoticeAction> Teller::listen()
{
    std::vector<NoticeAction> actions;
    for (const NotifierWord& word : notifier_.words(presentMoment())) {
        hear(word, actions);
    }
    return actions;
}

void Teller::hear(const NotifierWord& word, std::vector<NoticeAction>& actions)
{
    const auto isThis = [&](const auto& shown) { return shown.second == word.number; };
    switch (word.kind) {
        case NotifierWordKind::connected: break;
        case NotifierWordKind::given:
            shown_[subjectOf(underWay_.front().kind)] = word.number;
            underWay_.clear();
            trouble_.isOver("Notices can be given again.");
            break;
        case NotifierWordKind::unanswered:
            underWay_.clear();
            failed(word.text);
            break;
        case NotifierWordKind::failed:
        case NotifierWordKind::ended:
            outbox_.add(std::exchange(underWay_, {}));
            failed(word.text);
            break;
        case NotifierWordKind::action:
            // The service tells everybody about everybody's notices.
            if (std::any_of(shown_.begin(), shown_.end(), isThis)) {
                for (const ActionRow& row : actionRows) {
                    if (word.text == row.key) {
                        actions.push_back(row.action);
                    }
                }
            }
            break;
        case NotifierWordKind::closed: std::erase_if(shown_, isThis); break;
    }
}

void Teller::failed(const std::string& reason)
{
    pauseEnds_ = presentMoment() + pauseBetweenAttempts;
    trouble_.met("Notices cannot be given now: " + reason + ".");
}

bool Teller::isPausing() const { return presentMoment() < pauseEnds_; }

bool Teller::isAtRest(const QuillmereState& state) const
{
    return underWay_.empty() && (isPausing() || !outbox_.hasNext(state));
}

}  // namespace quillmere::app
