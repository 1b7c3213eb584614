#include "notices/notice.hpp"

#include "text/columns.hpp"
#include "text/inert.hpp"

#include <quillmere/records/enumeration.hpp>

#include <algorithm>

namespace quillmere::app {
namespace {

struct NoticeRow {
    StandingEvent::Kind value;
    NoticeSubject subject;
    std::string_view heading;
};

constexpr auto noticeRows = std::to_array<NoticeRow>({
    {StandingEvent::Kind::focusEnded, NoticeSubject::work, "Focus is over"},
    {StandingEvent::Kind::breakEnded, NoticeSubject::work, "The break is over"},
    {StandingEvent::Kind::blockStarted, NoticeSubject::work, "The scheduled block has begun"},
    {StandingEvent::Kind::questionRaised, NoticeSubject::questions, "A question waits"},
});
static_assert(inCaseOrder(noticeRows));

constexpr std::size_t mostTexts = 10;
constexpr std::size_t mostColumns = 200;
constexpr std::size_t mostBytes = 1'000;  // marks that combine take no columns, so columns alone are no bound

std::string line(const std::string& text)
{
    return cutToColumns(inert(text.substr(0, mostBytes)), mostColumns);
}

}  // namespace

NoticeSubject subjectOf(StandingEvent::Kind kind) { return rowOf(noticeRows, kind).subject; }

std::string_view heading(StandingEvent::Kind kind) { return rowOf(noticeRows, kind).heading; }

Notice noticeOf(const std::vector<StandingEvent>& events)
{
    const StandingEvent::Kind kind = events.front().kind;
    Notice notice{.heading = std::string(heading(kind)),
                  .body = line(events.front().text),
                  .mayExtendBreak = kind == StandingEvent::Kind::breakEnded};
    if (events.size() > 1) {
        notice.heading = std::to_string(events.size()) + " questions wait";
    }
    const std::size_t shown = std::min(events.size(), mostTexts);
    for (std::size_t index = 1; index < shown; ++index) {
        notice.body += '\n' + line(events[index].text);
    }
    if (shown < events.size()) {
        notice.body += "\nand " + std::to_string(events.size() - shown) + " more";
    }
    return notice;
}

}  // namespace quillmere::app
