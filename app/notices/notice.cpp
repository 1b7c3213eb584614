#include "notices/notice.hpp"

#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillmere::notices {
namespace {

constexpr std::size_t mostTexts = 10;
constexpr std::size_t mostColumns = 200;
// Combining characters take no columns, so a limit in columns alone is no limit in bytes.
constexpr std::size_t mostBytes = 1'000;

struct SoundRow {
    work::EventKind value;
    std::string_view name;
};

// clang-format off
constexpr auto soundRows = std::to_array<SoundRow>({
    {work::EventKind::blockStarted,   "alarm-clock-elapsed"},
    {work::EventKind::focusEnded,     "complete"},
    {work::EventKind::breakEnded,     "bell"},
    {work::EventKind::questionRaised, "message-new-instant"},
});
// clang-format on
static_assert(inCaseOrder(soundRows));

/// U+FDD0 to U+FDEF, and the last two code points of each plane.
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

/// Replaces noncharacters: they are well-formed UTF-8, but the bus refuses them.
std::string noncharactersReplaced(std::string_view text)
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
    return base::cutToColumns(noncharactersReplaced(base::sanitized(text.substr(0, mostBytes))), mostColumns);
}

std::string joined(const std::string& first, const std::string& second)
{
    return first + (first.empty() ? "" : "\n") + second;
}

}  // namespace

NoticeSubject subjectOf(work::EventKind kind)
{
    return kind == work::EventKind::questionRaised ? NoticeSubject::questions : NoticeSubject::work;
}

Notice noticeOf(const std::vector<StandingEvent>& events)
{
    const StandingEvent& first = events.front();
    if (first.isAhead) {
        return {.heading = "Focus ends in a minute",
                .body = line(first.text),
                .offer = NoticeAction::extendFocus,
                .isQuiet = true};
    }
    if (first.sleep && !first.sleep->isOver) {
        return {.heading = first.sleep->sentence,
                .body = joined(line(first.text), first.sleep->commands),
                .offer = NoticeAction::makeSleepAPause};
    }
    Notice notice{
        .heading = first.reminder ? first.reminder->heading : std::string(work::eventHeading(first.kind)),
        .body = line(first.text),
        .sound = rowOf(soundRows, first.kind).name};
    if (first.kind == work::EventKind::breakEnded) {
        notice.offer = NoticeAction::extendBreak;
    }
    if (first.sleep) {
        notice.body = joined(notice.body, first.sleep->sentence + " " + first.sleep->commands);
        notice.offer = NoticeAction::endBeforeSleep;
    }
    if (events.size() > 1) {
        notice.heading = work::waitingQuestionsText(events.size());
    }
    const std::size_t shown = std::min(events.size(), mostTexts);
    for (std::size_t index = 1; index < shown; ++index) {
        notice.body += '\n' + line(events[index].text);
    }
    if (shown < events.size()) {
        notice.body += '\n' + base::moreText(static_cast<std::int64_t>(events.size() - shown));
    }
    return notice;
}

}  // namespace quillmere::notices
