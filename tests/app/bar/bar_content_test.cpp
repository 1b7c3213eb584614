// The content of a bar for a summary.
#include "bar/bar_content.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "hostile_texts.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using bar::barContent;
using bar::BarContent;
using bar::usualBarWidth;

struct Phrasing {
    WorkflowState state;
    double after;  ///< seconds since the summary was made
    const char* text;
    const char* shortText;
    Words classes;
};

const Phrasing phrasings[] = {
    {WorkflowState::idle, 0, "Idle \u00B7 No active block", "Idle", {"idle"}},
    {WorkflowState::sessionPlanning,
     0,
     "Planning \u00B7 Plan the next session \u00B7 Chapter one",
     "Planning",
     {"planning"}},
    {WorkflowState::focusing,
     0,
     "Focus 25:00 \u00B7 Session 1 of 3 \u00B7 Outcome of session 1",
     "Focus 25:00",
     {"focusing"}},
    {WorkflowState::focusing,
     601,
     "Focus 14:59 \u00B7 Session 1 of 3 \u00B7 Outcome of session 1",
     "Focus 14:59",
     {"focusing"}},
    {WorkflowState::focusing,
     1500,
     "Focus 00:00 \u00B7 Session 1 of 3 \u00B7 Outcome of session 1",
     "Focus 00:00",
     {"focusing"}},
    {WorkflowState::focusing,
     1575,
     "Focus +01:15 \u00B7 Session 1 of 3 \u00B7 Outcome of session 1",
     "Focus +01:15",
     {"focusing", "overtime"}},
    {WorkflowState::sessionReview,
     0,
     "Review \u00B7 Review this session \u00B7 Outcome of session 1",
     "Review",
     {"reviewing"}},
    {WorkflowState::breaking, 60, "Break 04:00 \u00B7 Outcome of session 2", "Break 04:00", {"breaking"}},
    {WorkflowState::complete, 0, "Complete \u00B7 Block complete", "Complete", {"complete"}},
};

TEST(BarContent, hasThePhaseTheTimeAndTheOutcome)
{
    for (const Phrasing& expected : phrasings) {
        SCOPED_TRACE(expected.text);
        const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(expected.state), moment);
        const BarContent content = barContent(summary, moment + expected.after, usualBarWidth);
        EXPECT_EQ(content.text, expected.text);
        EXPECT_EQ(content.shortText, expected.shortText);
        EXPECT_EQ(content.classes, expected.classes);
        EXPECT_EQ(content.alternative, rawValue(summary.phase));
    }
}

TEST(BarContent, standsStillInAPause)
{
    WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    summary.countdown->isPaused = true;
    summary.countdown->frozenRemainingSeconds = 754;
    for (const double after : {0.0, 100.0, 100'000.0}) {
        const BarContent content = barContent(summary, moment + after, usualBarWidth);
        EXPECT_EQ(content.shortText, "Focus 12:34 paused");
        EXPECT_EQ(content.classes, (Words{"focusing", "paused"}));
        EXPECT_FALSE(content.isOvertime);
    }
}

TEST(BarContent, isOvertimeOnlyBeyondZero)
{
    const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    EXPECT_FALSE(barContent(summary, moment + 1500, usualBarWidth).isOvertime);
    EXPECT_TRUE(barContent(summary, moment + 1501, usualBarWidth).isOvertime);
    EXPECT_EQ(barContent(summary, moment + 1501, usualBarWidth).percentage, 100);
}

TEST(BarContent, hasThePercentageOfACountdown)
{
    const WidgetSnapshot focus = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    EXPECT_EQ(barContent(focus, moment, usualBarWidth).percentage, 0);
    EXPECT_EQ(barContent(focus, moment + 600, usualBarWidth).percentage, 40);
    const WidgetSnapshot idle = WidgetSnapshot::empty(moment);
    EXPECT_EQ(barContent(idle, moment, usualBarWidth).percentage, std::nullopt);
}

TEST(BarContent, hasTheQuestionsBeforeThePersonsText)
{
    WidgetSnapshot summary = summaryWith("Chapter one");
    BarContent content = barContent(summary, moment + 600, usualBarWidth);
    EXPECT_EQ(content.text, "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 4 questions \u00B7 Chapter one");
    EXPECT_EQ(content.classes, (Words{"focusing", "question"}));
    EXPECT_EQ(content.details,
              (Words{"Session 1 of 3", "15:00", "Outcome: Chapter one", "First action: Chapter one",
                     "Asked: Chapter one", "Asked: Chapter one", "Asked: Chapter one", "and 1 more"}));
    summary.openQuestionCount = 1;
    summary.openQuestions = {"Why?"};
    content = barContent(summary, moment + 600, usualBarWidth);
    EXPECT_EQ(content.text, "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 1 question \u00B7 Chapter one");
}

TEST(BarContent, isCutToItsWidthInColumns)
{
    for (const std::string& text : hostileTexts) {
        for (const std::size_t width : {1u, 5u, 12u, 45u, 60u, 200u}) {
            SCOPED_TRACE(text + " in " + std::to_string(width));
            const BarContent content = barContent(summaryWith(text), moment, width);
            EXPECT_LE(base::columnsOf(content.text), width);
            EXPECT_LE(base::columnsOf(content.shortText), width);
            for (const std::string& detail : content.details) {
                EXPECT_LE(base::columnsOf(detail), 100u);
            }
        }
    }
    EXPECT_EQ(barContent(summaryWith("x"), moment, 8).text, "Focus 2\u2026");
}

TEST(BarContent, isTheSameAlthoughItReadsOnlyTheBeginningOfALongText)
{
    for (const char* part : {"word ", "\r\n", "\u65E5", "e\u0301\u0323", "\U0001F468", "\xE6\x97", "\x1b",
                             "b\u200B\u200B\u200B\u200B\u200B", "\r\n\u200B\u200B\u200B\u200B\u200B"}) {
        for (std::size_t shift = 0; shift < 4; ++shift) {
            std::string text(shift, 'x');
            while (text.size() < 20'000) {
                text += part;
            }
            SCOPED_TRACE(part + std::to_string(shift));
            for (const std::size_t width : {1u, 60u, 100u}) {
                WidgetSnapshot summary = WidgetSnapshot::empty(moment);
                summary.intendedOutcome = text;
                const BarContent content = barContent(summary, moment, width);
                const std::string line = "Idle \u00B7 No active block \u00B7 " + base::sanitized(text);
                EXPECT_EQ(content.text, base::cutToColumns(line, width));
                EXPECT_EQ(content.facts.value().intendedOutcome,
                          base::cutToColumns(base::sanitized(text), 100));
                EXPECT_EQ(content.details.at(1),
                          base::cutToColumns("Outcome: " + base::sanitized(text), 100));
            }
        }
    }
}

TEST(BarContent, ofAFailureHasItsMessage)
{
    const BarContent content = bar::barContentOfFailure("The summary is \x1b[2J spoilt.", 20);
    EXPECT_EQ(content.text, "The summary is \uFFFD[2J\u2026");
    EXPECT_EQ(content.details, Words{"The summary is \uFFFD[2J spoilt."});
    EXPECT_EQ(content.alternative, "unreadable");
    EXPECT_EQ(content.classes, Words{"unreadable"});
    EXPECT_FALSE(content.isOvertime);
}

}  // namespace
}  // namespace quillmere::test
