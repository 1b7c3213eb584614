#include "work/event_text.hpp"

#include "base/text/local_time.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <array>

namespace quillmere::work {
namespace {

struct EventRow {
    EventKind value;
    std::string_view name;
    std::string_view heading;
    std::string_view sentence;  ///< up to the time
};

using enum EventKind;

// clang-format off
constexpr auto eventRows = std::to_array<EventRow>({
    {blockStarted,   "block_started",   "The scheduled block has begun", "The scheduled block started at"},
    {focusEnded,     "focus_ended",     "Focus is over",                 "The focus session ended at"},
    {breakEnded,     "break_ended",     "The break is over",             "The break was over at"},
    {questionRaised, "question_raised", "A question waits",              "A question was asked at"},
});
// clang-format on
static_assert(inCaseOrder(eventRows));

}  // namespace

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

std::string eventText(EventKind kind, Instant at, Instant now)
{
    return std::string(rowOf(eventRows, kind).sentence) + " " + base::localTextSeenFrom(now, at) + ".";
}

std::string eventText(const workspace::Event& event, Instant now)
{
    return eventText(kindOf(event), event.at, now);
}

}  // namespace quillmere::work
