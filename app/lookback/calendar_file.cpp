#include "lookback/calendar_file.hpp"

#include "base/text/sanitize.hpp"
#include "base/version.hpp"
#include "lookback/words.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <algorithm>

namespace quillmere::lookback {
namespace {

constexpr std::string_view calendarLineEnd = "\r\n";

/// A calendar must have a component (3.4). Without events it is this time zone.
constexpr std::string_view nothingButTheTimeZone =
    "BEGIN:VTIMEZONE\r\n"
    "TZID:UTC\r\n"
    "BEGIN:STANDARD\r\n"
    "DTSTART:19700101T000000\r\n"
    "TZOFFSETFROM:+0000\r\n"
    "TZOFFSETTO:+0000\r\n"
    "END:STANDARD\r\n"
    "END:VTIMEZONE\r\n";

/// "20261115T150000Z": a date text without its separators.
std::string calendarTime(Instant instant)
{
    std::string text = json::dateText(instant);
    std::erase_if(text, [](char character) { return character == '-' || character == ':'; });
    return text;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

void addParagraph(std::string& text, std::string_view name, std::string_view value)
{
    if (!value.empty()) {
        text.append(text.empty() ? "" : "\n").append(name).append(": ").append(value);
    }
}

std::string descriptionOf(const figures::EndedSession& ended)
{
    const WorkSession& session = *ended.session;
    std::string text;
    if (ended.time) {
        addParagraph(text, "Worked",
                     focusText(ended.time->workedSeconds) + " of " +
                         focusText(session.plannedDurationSeconds) + " planned");
        addParagraph(text, "Pauses", focusText(ended.time->pausedSeconds));
    }
    addParagraph(text, "First action", session.plan.firstAction);
    if (session.review) {
        addParagraph(text, "Completed", completionText(session.review->completion));
        addParagraph(text, "Result", session.review->noteworthyResult);
        addParagraph(text, "Distractions", session.review->distractions);
        addParagraph(text, "Improvement", session.review->improvement);
    }
    addParagraph(text, "Block", titlesOf(*ended.block));
    if (ended.block->reflection) {
        addParagraph(text, "Result of the block", ended.block->reflection->outputProduced);
    }
    return text;
}

/// Calendars begin with the year 1; ISO 8601 has a year 0 before it.
bool hasADate(const figures::EndedSession& ended)
{
    constexpr Instant yearOne(-62'135'596'800);
    return ended.session->startedAt >= yearOne;
}

/// The last change of the record, or later: a calendar updates an event if the new one is newer, such as that
/// of a session that has been reviewed since. Not the time of the export, so that the same sessions give the
/// same file.
Instant lastChangeOf(const figures::EndedSession& ended)
{
    return std::max({ended.settledAt, *ended.session->endedAt, ended.session->startedAt});
}

std::string eventOf(const figures::EndedSession& ended)
{
    const WorkSession& session = *ended.session;
    const std::string lastChange = calendarTime(lastChangeOf(ended));
    std::string text = calendarLine("BEGIN", "VEVENT");
    text += calendarLine("UID", session.id.text());
    // Both are the same in a file without METHOD (3.8.7.2).
    text += calendarLine("DTSTAMP", lastChange);
    text += calendarLine("LAST-MODIFIED", lastChange);
    text += calendarLine("DTSTART", calendarTime(session.startedAt));
    if (ended.time && calendarTime(*session.endedAt) > calendarTime(session.startedAt)) {
        text += calendarLine("DTEND", calendarTime(*session.endedAt));
    }
    text += calendarLine("SUMMARY", calendarText(nameOf(session, *ended.block)));
    if (const std::string description = descriptionOf(ended); !description.empty()) {
        text += calendarLine("DESCRIPTION", calendarText(description));
    }
    text += calendarLine("CATEGORIES", "Focus");
    return text + calendarLine("END", "VEVENT");
}

}  // namespace

std::string calendarText(std::string_view text)
{
    std::string value;
    char before = '\0';
    for (const char character : base::sanitizedLines(text)) {
        const bool isLineEnd = character == '\n' || character == '\r';
        if (isLineEnd) {
            value += character == '\n' && before == '\r' ? "" : "\\n";
        } else if (character == '\\' || character == ';' || character == ',') {
            value.append("\\").push_back(character);
        } else {
            value += character;
        }
        before = character;
    }
    return value;
}

std::string calendarLine(std::string_view name, std::string_view value)
{
    constexpr std::size_t mostOctets = 75;
    constexpr std::size_t mostContinuations = 3;  // bytes of a character after its first
    const std::string whole = std::string(name).append(":").append(value);
    std::string_view rest = whole;
    std::string text;
    // The space at the start of a continuation line counts too.
    for (std::size_t room = mostOctets; rest.size() > room; room = mostOctets - 1) {
        std::size_t length = room;
        while (length > room - mostContinuations && isContinuation(rest[length])) {
            --length;
        }
        text.append(rest.substr(0, length)).append(calendarLineEnd).append(" ");
        rest.remove_prefix(length);
    }
    return text.append(rest).append(calendarLineEnd);
}

std::string calendarOf(const figures::LookBack& look)
{
    std::string text = calendarLine("BEGIN", "VCALENDAR");
    text += calendarLine("VERSION", "2.0");
    text += calendarLine("PRODID", std::string("-//Quillmere//Quillmere ") + base::programVersion + "//EN");
    text += calendarLine("CALSCALE", "GREGORIAN");
    std::string events;
    for (const figures::EndedSession& ended : look.sessions) {
        events += hasADate(ended) ? eventOf(ended) : "";
    }
    text += events.empty() ? nothingButTheTimeZone : events;
    return text + calendarLine("END", "VCALENDAR");
}

}  // namespace quillmere::lookback
