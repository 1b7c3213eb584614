#include "notices/said_again.hpp"

#include "notices/notice.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>

namespace quillmere::notices {
namespace {

/// Ends with the key of the event, so that both are pruned together (DeliveryLog::prune).
std::string reminderKey(const StandingEvent& event, std::size_t number)
{
    return "reminder-" + std::to_string(number) + "-" + event.key;
}

}  // namespace

std::optional<StandingEvent> eventAhead(const QuillmereState& state, Instant now)
{
    const auto timer = TimerSnapshot::derive(state, now);
    if (!timer || timer->kind != TimerKind::focus || timer->isPaused || timer->hasRunOut() ||
        timer->remainingSeconds > secondsAhead) {
        return std::nullopt;
    }
    const WorkSession& session = *state.currentSession();
    const std::int64_t planned = wholeSeconds(session.plannedDurationSeconds);
    if (planned <= secondsAhead) {
        return std::nullopt;
    }
    // By the planned length and not by the end, which each pause moves: a pause in the last minute must not
    // repeat the notice, and a longer session must.
    return StandingEvent{.kind = work::EventKind::focusEnded,
                         .key = "ahead-" + session.id.text() + "-" + std::to_string(planned),
                         .at = now + static_cast<double>(timer->remainingSeconds),
                         .text = WidgetSnapshot::make(state, now).intendedOutcome,
                         .isAhead = true};
}

void addReminders(std::vector<StandingEvent>& events, const std::vector<double>& reminderSeconds,
                  std::optional<Instant> overSince, const base::SeenFrom& here)
{
    for (StandingEvent& event : events) {
        const auto due = std::count_if(reminderSeconds.begin(), reminderSeconds.end(),
                                       [&](double seconds) { return here.now - event.at >= seconds; });
        if (due > 0 && subjectOf(event.kind) == NoticeSubject::work) {
            event.reminder = {.number = static_cast<std::size_t>(due),
                              .heading = std::string(work::waitingHeading(event.kind)) + " since " +
                                         base::localTextWithin(here, overSince.value_or(event.at))};
        }
    }
}

void addSleep(std::vector<StandingEvent>& events, const work::SleptThrough& slept, std::int64_t total,
              const base::SeenFrom& here)
{
    const ToldSleep told{.sentence = work::sleepText(slept, here),
                         .commands = work::sleepCommands(slept, here.now),
                         .isOver = slept.isOver};
    if (!slept.isOver) {
        events.insert(events.begin(), {.kind = work::EventKind::focusEnded,
                                       .key = "slept-" + slept.session.text() + "-" + std::to_string(total),
                                       .at = slept.sleep.to,
                                       .text = {},
                                       .sleep = told});
        return;
    }
    for (StandingEvent& event : events) {
        if (event.kind == work::EventKind::focusEnded) {
            event.sleep = told;
        }
    }
}

std::string deliveryKey(const StandingEvent& event)
{
    return event.reminder ? reminderKey(event, event.reminder->number) : event.key;
}

std::vector<std::string> deliveryKeys(const StandingEvent& event)
{
    std::vector<std::string> keys = {event.key};
    for (std::size_t number = 1; event.reminder && number <= event.reminder->number; ++number) {
        keys.push_back(reminderKey(event, number));
    }
    return keys;
}

}  // namespace quillmere::notices
