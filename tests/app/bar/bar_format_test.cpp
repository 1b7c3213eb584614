// The line formats of the bars, and their escaping.
#include "bar/bar_format.hpp"

#include <algorithm>
#include <sstream>

#include "bar/content_of_widget.hpp"
#include "base/text/sanitize.hpp"
#include "hostile_texts.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using bar::BarContent;
using bar::BarFormat;
using bar::BarPace;
using bar::barText;

BarContent contentWith(const std::string& text, double after = 600)
{
    return contentOfWidget(summaryWith(text), moment + after, 200);
}

std::string lineOf(BarFormat format, const std::string& text)
{
    return barText(format, contentWith(text), BarPace::following);
}

struct Escaping {
    const char* text;
    const char* forPango;
    const char* forTmux;
    const char* forPolybar;
};

constexpr Escaping escapings[] = {
    {"plain", "plain", "plain", "plain"},
    {"", "", "", ""},
    {"<b>&'\"", "&lt;b&gt;&amp;&#39;&quot;", "<b>&'\"", "<b>&'\""},
    {"&lt;", "&amp;lt;", "&lt;", "&lt;"},
    {"#{x} ##[y]", "#{x} ##[y]", "##{x} ####[y]", "#{x} ##[y]"},
    {"%{A} %%{ % { %", "%{A} %%{ % { %", "%{A} %%{ % { %", "%\u200B{A} %%\u200B{ % { %"},
    {"\u65E5<", "\u65E5&lt;", "\u65E5<", "\u65E5<"},
};

TEST(BarEscapes, areThoseOfEachBar)
{
    for (const Escaping& escaping : escapings) {
        SCOPED_TRACE(escaping.text);
        EXPECT_EQ(bar::escapedForPango(escaping.text), escaping.forPango);
        EXPECT_EQ(bar::escapedForTmux(escaping.text), escaping.forTmux);
        EXPECT_EQ(bar::escapedForPolybar(escaping.text), escaping.forPolybar);
    }
}

TEST(BarText, isOneSanitizedLineInEveryFormat)
{
    for (const BarFormat format : allCases<BarFormat>()) {
        for (const std::string& text : hostileTexts) {
            SCOPED_TRACE(std::string(rawValue(format)) + ": " + text);
            const std::string line = lineOf(format, text);
            ASSERT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
            EXPECT_EQ(line.back(), '\n');
            const std::string shown = line.substr(0, line.size() - 1);
            EXPECT_EQ(base::sanitized(shown), shown);
        }
    }
}

TEST(BarText, ofPolybarHasNoTag)
{
    // https://github.com/polybar/polybar/wiki/Formatting: a tag begins with these two characters.
    for (const std::string& text : hostileTexts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(lineOf(BarFormat::polybar, text).find("%{"), std::string::npos);
    }
}

TEST(BarText, ofTmuxHasNoOddHash)
{
    for (const std::string& text : hostileTexts) {
        SCOPED_TRACE(text);
        std::string line = lineOf(BarFormat::tmux, text);
        for (std::size_t place = 0; (place = line.find("##", place)) != std::string::npos;) {
            line.erase(place, 2);
        }
        EXPECT_EQ(line.find('#'), std::string::npos);
    }
}

TEST(BarText, ofWaybarHasTheMembersOfItsProtocol)
{
    const TimeZone utc("UTC");
    const std::string line = barText(BarFormat::waybar, contentWith("<b>", 1600), BarPace::once);
    EXPECT_EQ(line,
              R"({"text":"Review over since 15:25 \u00b7 Review this session \u00b7 4 questions \u00b7 )"
              R"(&lt;b&gt;",)"
              R"("alt":"reviewing","tooltip":"Review this session\nover since 15:25\nOutcome: &lt;b&gt;\n)"
              R"(First action: &lt;b&gt;\nAsked: &lt;b&gt;\nAsked: &lt;b&gt;\nAsked: &lt;b&gt;\nand 1 more",)"
              R"("class":["reviewing","overtime","question"],"percentage":0})"
              "\n");
}

TEST(BarText, ofJsonHasTheDocumentedMembers)
{
    const std::string line = barText(BarFormat::json, contentWith("<b>"), BarPace::once);
    EXPECT_EQ(line, R"({"text":"Focus 15:00 \u00b7 Session 1 of 3 \u00b7 4 questions \u00b7 <b>",)"
                    R"("short_text":"Focus 15:00","phase":"focusing","classes":["focusing","question"],)"
                    R"("percentage":40,"title":"Focus","caption":"Session 1 of 3","remaining_seconds":900,)"
                    R"("time_text":"15:00","intended_outcome":"<b>","first_action":"<b>",)"
                    R"("open_question_count":4,"open_questions":["<b>","<b>","<b>"],)"
                    R"("link":"quillmere://open/focus","updated_at":"2026-11-15T15:00:00Z"})"
                    "\n");
    const auto idle = contentOfWidget(WidgetSnapshot::empty(moment), moment, 60);
    const std::string idleLine = barText(BarFormat::json, idle, BarPace::once);
    EXPECT_EQ(keysOf(idleLine), keysOf(line));
    for (const char* member : {"/percentage", "/remaining_seconds", "/time_text"}) {
        EXPECT_EQ(jsonAt(member, idleLine), "null");
    }
}

TEST(BarText, ofI3blocksIsThreeLinesFromARunThatEnds)
{
    EXPECT_EQ(barText(BarFormat::i3blocks, contentWith("<b>"), BarPace::once),
              "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 4 questions \u00B7 <b>\nFocus 15:00\n#e0806a\n");
    EXPECT_EQ(barText(BarFormat::i3blocks, contentWith("<b>"), BarPace::following),
              "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 4 questions \u00B7 <b>\n");
    const auto idle = contentOfWidget(WidgetSnapshot::empty(moment), moment, 60);
    EXPECT_EQ(barText(BarFormat::i3blocks, idle, BarPace::once), "Idle \u00B7 No active block\nIdle\n");
}

TEST(BarText, ofI3blocksHasNoColourOnceTheTimeIsOver)
{
    const std::string text = barText(BarFormat::i3blocks, contentWith("<b>", 1600), BarPace::once);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2) << text;
}

TEST(BarText, ofI3blocksHasNoLineLongerThanItsBuffer)
{
    // i3blocks 1.5: a buffer of 1,024 bytes for each line.
    for (const std::string& text : hostileTexts) {
        for (const BarPace pace : {BarPace::once, BarPace::following}) {
            const BarContent content = contentOfWidget(summaryWith(text), moment + 600, 1'000);
            std::istringstream lines(barText(BarFormat::i3blocks, content, pace));
            int count = 0;
            for (std::string line; std::getline(lines, line); ++count) {
                EXPECT_LE(line.size(), 900u);
            }
            EXPECT_EQ(count, pace == BarPace::once ? 3 : 1);
        }
    }
}

TEST(BarText, ofAFailureIsALineInEveryFormat)
{
    const BarContent content = bar::barContentOfFailure("It is <spoilt>.", 60);
    for (const BarFormat format : allCases<BarFormat>()) {
        SCOPED_TRACE(rawValue(format));
        const std::string line = barText(format, content, BarPace::following);
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
        EXPECT_NE(line.find("spoilt"), std::string::npos);
    }
    const std::string json = barText(BarFormat::json, content, BarPace::following);
    EXPECT_EQ(jsonAt("/error", json), R"("It is <spoilt>.")");
    EXPECT_EQ(jsonAt("/phase", json), R"("unreadable")");
}

}  // namespace
}  // namespace quillmere::test
