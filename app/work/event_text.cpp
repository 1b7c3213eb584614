#include "work/event_text.hpp"

#include "base/text/count.hpp"
#include "work/changes/change_text.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillmere::work {
namespace {

struct EventRow {
    EventKind value;
    std::string_view name;
    std::string_view heading;
    std::string_view waiting;
    std::string_view article;
    ChangeKind change;
    std::string_view meaning;
};

// clang-format off
constexpr auto eventRows = std::to_array<EventRow>({
    {EventKind::blockStarted,   "block_started",   "The scheduled block has begun", "Plan waiting",     "The", ChangeKind::scheduledBlockStarted, "A block began by its schedule; the plan of its first session waits."},
    {EventKind::focusEnded,     "focus_ended",     "Focus is over",                 "Review waiting",   "The", ChangeKind::focusEnded,            "The time of a focus session ran out; its review waits."},
    {EventKind::breakEnded,     "break_ended",     "The break is over",             "Break over",       "The", ChangeKind::breakOver,             "The time of a break ran out; the next session waits."},
    {EventKind::questionRaised, "question_raised", "A question waits",              "Question waiting", "A",   ChangeKind::questionAsked,         "An agent or a person asked a question, and the person may be interrupted."},
});
// clang-format on
static_assert(inCaseOrder(eventRows));

}  // namespace

std::vector<EventDescription> allEvents()
{
    std::vector<EventDescription> events;
    for (const EventRow& row : eventRows) {
        events.push_back({.name = row.name, .meaning = row.meaning});
    }
    return events;
}

EventKind kindOf(const workspace::Event& event)
{
    switch (event.kind) {
        case workspace::Event::Kind::blockStarted: return EventKind::blockStarted;
        case workspace::Event::Kind::focusEnded: return EventKind::focusEnded;
        case workspace::Event::Kind::breakEnded: break;
    }
    return EventKind::breakEnded;
}

std::string_view eventName(EventKind kind) { return rowOf(eventRows, kind).name; }

std::string_view eventHeading(EventKind kind) { return rowOf(eventRows, kind).heading; }

std::string_view waitingHeading(EventKind kind) { return rowOf(eventRows, kind).waiting; }

std::string waitingQuestionsText(std::size_t count)
{
    return count == 1 ? std::string(eventHeading(EventKind::questionRaised))
                      : base::countText(static_cast<std::int64_t>(count), "question") + " wait";
}

std::string eventText(EventKind kind, Instant at, const base::SeenFrom& here)
{
    const EventRow& row = rowOf(eventRows, kind);
    return std::string(row.article) + " " + changeText({.kind = row.change, .at = at}, here) + ".";
}

std::string eventText(const workspace::Event& event, const base::SeenFrom& here)
{
    return eventText(kindOf(event), event.at, here);
}

}  // namespace quillmere::work
