// The sessions as a calendar.
#include "lookback/calendar_file.hpp"

#include "base/version.hpp"
#include "figures_testing.hpp"
#include "support/process.hpp"

#include <sstream>

namespace quillmere::test {
namespace {

using figures::statistics;
using lookback::calendarLine;
using lookback::calendarOf;
using lookback::calendarText;

std::string calendarAt(const QuillmereState& state)
{
    return calendarOf(statistics(state, {}, day("2026-11-15")));
}

TEST(Calendar, hasAnEventForEachSession)
{
    WorkSession brief = session(moment + 3600, 0);
    brief.plan.intendedOutcome = "";
    brief.plan.firstAction = "";
    brief.review.reset();
    const std::string expected =
        "BEGIN:VCALENDAR\r\n"
        "VERSION:2.0\r\n"
        "PRODID:-//Quillmere//Quillmere " +
        std::string(base::programVersion) +
        "//EN\r\n"
        "CALSCALE:GREGORIAN\r\n"
        "BEGIN:VEVENT\r\n"
        "UID:9F1C2A4E-0B7D-4C55-8E21-0000000002BC\r\n"
        "DTSTAMP:20261115T170000Z\r\n"
        "LAST-MODIFIED:20261115T170000Z\r\n"
        "DTSTART:20261115T150000Z\r\n"
        "DTEND:20261115T152600Z\r\n"
        "SUMMARY:Outcome of session 1\r\n"
        "DESCRIPTION:Worked: 25 min of 25 min planned\\nPauses: 1 min\\nFirst action: \r\n"
        " First action 1\\nCompleted: half\\nResult: Result 1\\nDistractions: Mail\\nImp\r\n"
        " rovement: Start with the hard part\\nBlock: Chapter one\\; Chapter two\r\n"
        "CATEGORIES:Focus\r\n"
        "END:VEVENT\r\n"
        "BEGIN:VEVENT\r\n"
        "UID:9F1C2A4E-0B7D-4C55-8E21-0000000002BD\r\n"
        "DTSTAMP:20261115T170000Z\r\n"
        "LAST-MODIFIED:20261115T170000Z\r\n"
        "DTSTART:20261115T160000Z\r\n"
        "SUMMARY:Chapter one\r\n"
        "DESCRIPTION:Worked: none of 25 min planned\\nPauses: none\\nBlock: Chapter on\r\n"
        " e\\; Chapter two\r\n"
        "CATEGORIES:Focus\r\n"
        "END:VEVENT\r\n"
        "END:VCALENDAR\r\n";
    EXPECT_EQ(calendarAt(stateWith({session(moment, 1560, 60), brief})), expected);
}

TEST(Calendar, givesNoEndToASessionWhoseTimeIsNotKnown)
{
    for (const double elapsed : {-500.0, 1e9}) {
        const std::string text = calendarAt(stateWith({session(moment, elapsed)}));
        EXPECT_EQ(text.find("DTEND"), std::string::npos);
        EXPECT_NE(text.find("DTSTART:20261115T150000Z"), std::string::npos);
    }
}

TEST(Calendar, isTheSameForTheSameSessions)
{
    QuillmereState state = stateWith({session(moment, 1500)});
    const std::string before = calendarAt(state);
    state.updatedAt = moment + 5000;
    EXPECT_EQ(calendarAt(state), before);
}

std::string stampIn(const std::string& calendar, const std::string& name)
{
    const std::size_t place = calendar.find("\r\n" + name + ":");
    EXPECT_NE(place, std::string::npos) << calendar;
    return calendar.substr(place + 3 + name.size(), 16);
}

TEST(Calendar, isNewerWhenASessionHasBeenReviewedSince)
{
    QuillmereState state = stateWith({session(moment, 1500)});
    state.currentBlock = std::move(state.blockHistory.front());
    state.blockHistory.clear();
    state.currentBlock->completedAt.reset();
    state.currentBlock->sessions.front().review.reset();
    state.updatedAt = moment + 1500;
    const std::string ended = calendarAt(state);
    state.currentBlock->sessions.front().review = sampleReview(1);
    state.updatedAt = moment + 1800;
    const std::string reviewed = calendarAt(state);
    for (const char* name : {"DTSTAMP", "LAST-MODIFIED"}) {
        EXPECT_EQ(stampIn(ended, name), "20261115T152500Z");
        EXPECT_EQ(stampIn(reviewed, name), "20261115T153000Z");
    }
}

TEST(Calendar, isNeverOlderThanItsSessions)
{
    // As other clocks may have it.
    QuillmereState state = stateWith({session(moment, 1500), session(moment, -60)});
    state.blockHistory.front().completedAt = moment - 86'400;
    const std::string text = calendarAt(state);
    EXPECT_EQ(stampIn(text, "DTSTAMP"), "20261115T152500Z");
    EXPECT_EQ(stampIn(text.substr(text.find("END:VEVENT")), "DTSTAMP"), "20261115T150000Z");
}

TEST(Calendar, leavesOutTheYear0)
{
    const Instant yearOne(-62'135'596'800);
    const std::string text = calendarAt(stateWith({session(yearOne - 1, 1500), session(yearOne, 1500)}));
    EXPECT_EQ(text.find("DTSTART:0000"), std::string::npos);
    EXPECT_NE(text.find("DTSTART:00010101T000000Z"), std::string::npos);
    EXPECT_NE(calendarAt(stateWith({session(yearOne - 1, 1500)})).find("VTIMEZONE"), std::string::npos);
}

struct TextCase {
    const char* text;
    const char* value;
};

constexpr TextCase texts[] = {
    {"plain", "plain"},       {"a,b;c\\d", "a\\,b\\;c\\\\d"},
    {"a\nb", "a\\nb"},        {"a\r\nb", "a\\nb"},
    {"a\rb", "a\\nb"},        {"a\n\nb\n\r", "a\\n\\nb\\n\\n"},
    {"a: \"b\"", "a: \"b\""}, {"\x1b\x07\x7F\t", "\uFFFD\uFFFD\uFFFD\t"},
    {"\\n", "\\\\n"},         {"\xC2\x85\u061C\u202Ea", "\uFFFD\uFFFD\uFFFDa"},
};

TEST(CalendarText, escapesWhatHasAMeaning)
{
    for (const TextCase& each : texts) {
        EXPECT_EQ(calendarText(each.text), each.value);
    }
}

TEST(CalendarLine, isFoldedAt75OctetsBetweenCharacters)
{
    EXPECT_EQ(calendarLine("A", std::string(73, 'x')), "A:" + std::string(73, 'x') + "\r\n");
    EXPECT_EQ(calendarLine("A", std::string(74, 'x')), "A:" + std::string(73, 'x') + "\r\n x\r\n");
    EXPECT_EQ(calendarLine("A", std::string(148, 'x')),
              "A:" + std::string(73, 'x') + "\r\n " + std::string(74, 'x') + "\r\n x\r\n");
    for (std::size_t shift = 0; shift < 8; ++shift) {
        std::string value(shift, 'x');
        for (int count = 0; count < 60; ++count) {
            value += "\u00E9\u6F22\U0001F600";
        }
        std::string unfolded;
        std::istringstream lines(calendarLine("A", value));
        for (std::string line; std::getline(lines, line);) {
            ASSERT_TRUE(line.ends_with('\r'));
            line.pop_back();
            EXPECT_LE(line.size(), 75u);
            EXPECT_GE(line.size(), lines.peek() == EOF ? 1u : 72u);
            const std::string part = unfolded.empty() ? line : line.substr(1);
            EXPECT_NE(static_cast<unsigned char>(part.front()) & 0xC0, 0x80) << "cuts a character";
            unfolded += part;
        }
        EXPECT_EQ(unfolded, "A:" + value);
    }
}

TEST(CalendarLine, endsForBytesThatAreNoText)
{
    EXPECT_EQ(calendarLine("A", std::string(300, '\xBF')).size(), 302u + 2 + 4 * 3);
}

/// Runs a script that reads the calendar with another program's library and returns how it ended. The script
/// has the events, and `expected` as `text`.
ProcessEnding readByAnotherProgram(const std::string& calendar, const std::string& expected,
                                   const std::string& script)
{
    const TemporaryDirectory directory;
    const std::string calendarFile = (directory.path() / "sessions.ics").string();
    const std::string expectedFile = (directory.path() / "expected").string();
    writeText(calendarFile, calendar);
    writeText(expectedFile, expected);
    const std::string reading =
        "import icalendar, sys\n"
        "calendar = icalendar.Calendar.from_ical(open(sys.argv[1], 'rb').read())\n"
        "events = calendar.walk('VEVENT')\n"
        "text = open(sys.argv[2], newline='', encoding='utf-8').read()\n";
    return run({.words = {"/usr/bin/python3", "-c", reading + script, calendarFile, expectedFile}});
}

TEST(Calendar, isReadBackAsItWasWrittenByAnotherProgram)
{
    const std::string text = replaced(hostileTextInExports(), "\r\n", "\n");
    const ProcessEnding ending =
        readByAnotherProgram(calendarAt(hostileState()), text,
                             "event = events[0]\n"
                             "assert len(events) == 1 and not event.errors, event.errors\n"
                             "assert str(event['SUMMARY']) == text, (event['SUMMARY'], text)\n"
                             "assert str(event['DESCRIPTION']).count(text) == 5\n"
                             "print(event['UID'], event.decoded('DTSTART'), event.decoded('DTEND'),\n"
                             "      event.decoded('DTSTAMP'))\n");
    EXPECT_EQ(ending.code, 0) << ending.err;
    EXPECT_EQ(ending.out,
              "9F1C2A4E-0B7D-4C55-8E21-0000000002BC 2026-11-15 15:00:00+00:00 2026-11-15 15:25:00+00:00 "
              "2026-11-15 17:00:00+00:00\n");
}

TEST(Calendar, isReadableWithoutSessionsToo)
{
    const ProcessEnding ending =
        readByAnotherProgram(calendarAt(QuillmereState::initial(moment)), "",
                             "print(len(events), [part.name for part in calendar.subcomponents])\n");
    EXPECT_EQ(ending.code, 0) << ending.err;
    EXPECT_EQ(ending.out, "0 ['VTIMEZONE']\n");
}

}  // namespace
}  // namespace quillmere::test
