#include "notices/notice.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/json/utf8.hpp>

#include <algorithm>

namespace quillmere::notices {
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

/// U+FDD0 to U+FDEF, and the last two of each of the planes of Unicode.
bool isNoncharacter(std::string_view character)
{
    constexpr std::string_view first = "\xEF\xB7\x90";
    constexpr std::string_view last = "\xEF\xB7\xAF";
    if (character >= first && character <= last) {
        return true;
    }
    const bool endsPlane = character.ends_with("\xBF\xBE") || character.ends_with("\xBF\xBF");
    return endsPlane && (character[character.size() - 3] & 0x0F) == 0x0F;
}

/// Without what is good UTF-8 and refused by the bus all the same.
std::string withoutNoncharacters(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, json::frontSequence(text).length);
        result += isNoncharacter(character) ? json::replacementCharacter : character;
        text.remove_prefix(character.size());
    }
    return result;
}

std::string line(const std::string& text)
{
    return base::cutToColumns(withoutNoncharacters(base::sanitized(text.substr(0, mostBytes))), mostColumns);
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

}  // namespace quillmere::notices
