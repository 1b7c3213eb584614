// The content of a bar for a summary.
#include "bar/bar_content.hpp"

#include "bar/content_of_widget.hpp"
#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "hostile_texts.hpp"
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

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
     1499,
     "Focus 00:01 \u00B7 Session 1 of 3 \u00B7 Outcome of session 1",
     "Focus 00:01",
     {"focusing"}},
    {WorkflowState::focusing,
     1500,
     "Review over since 15:25 \u00B7 Review this session \u00B7 Outcome of \u2026",
     "Review over since 15:25",
     {"reviewing", "overtime"}},
    {WorkflowState::focusing,
     86'400,
     "Review over since Sun 15:25 \u00B7 Review this session \u00B7 Outcome\u2026",
     "Review over since Sun 15:25",
     {"reviewing", "overtime"}},
    {WorkflowState::sessionReview,
     0,
     "Review \u00B7 Review this session \u00B7 Outcome of session 1",
     "Review",
     {"reviewing"}},
    {WorkflowState::blockPlanning, 0, "Planning \u00B7 Plan the block", "Planning", {"planning"}},
    {WorkflowState::blockReview,
     0,
     "Review \u00B7 Look back on the block \u00B7 Chapter one",
     "Review",
     {"reviewing"}},
    {WorkflowState::breaking, 60, "Break 04:00 \u00B7 Outcome of session 2", "Break 04:00", {"breaking"}},
    {WorkflowState::breaking,
     375,
     "Break over since 15:05 \u00B7 Outcome of session 2",
     "Break over since 15:05",
     {"breaking", "overtime"}},
    {WorkflowState::complete, 0, "Complete \u00B7 Block complete", "Complete", {"complete"}},
};

TEST(BarContent, hasThePhaseTheTimeAndTheOutcome)
{
    const TimeZone utc("UTC");
    for (const Phrasing& expected : phrasings) {
        SCOPED_TRACE(expected.text);
        const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(expected.state), moment);
        const BarContent content = contentOfWidget(summary, moment + expected.after, usualBarWidth);
        EXPECT_EQ(content.text, expected.text);
        EXPECT_EQ(content.shortText, expected.shortText);
        EXPECT_EQ(content.classes, expected.classes);
        EXPECT_EQ(content.alternative, expected.classes.front());
    }
}

TEST(BarContent, standsStillInAPause)
{
    WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    summary.countdown->isPaused = true;
    summary.countdown->frozenRemainingSeconds = 754;
    for (const double after : {0.0, 100.0, 100'000.0}) {
        const BarContent content = contentOfWidget(summary, moment + after, usualBarWidth);
        EXPECT_EQ(content.shortText, "Focus 12:34 paused");
        EXPECT_EQ(content.classes, (Words{"focusing", "paused"}));
        EXPECT_FALSE(content.isOvertime);
    }
}

TEST(BarContent, isOvertimeAsSoonAsNoTimeIsLeft)
{
    const WidgetSnapshot focus = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    EXPECT_FALSE(contentOfWidget(focus, moment + 1499, usualBarWidth).isOvertime);
    EXPECT_TRUE(contentOfWidget(focus, moment + 1500, usualBarWidth).isOvertime);
    EXPECT_EQ(contentOfWidget(focus, moment + 1500, usualBarWidth).percentage, std::nullopt);
    const WidgetSnapshot rest = WidgetSnapshot::make(stateIn(WorkflowState::breaking), moment);
    EXPECT_FALSE(contentOfWidget(rest, moment + 299, usualBarWidth).isOvertime);
    EXPECT_TRUE(contentOfWidget(rest, moment + 300, usualBarWidth).isOvertime);
    EXPECT_EQ(contentOfWidget(rest, moment + 300, usualBarWidth).percentage, 100);
}

TEST(BarContent, countsUpForProgramsAlone)
{
    const TimeZone utc("UTC");
    const WidgetSnapshot rest = WidgetSnapshot::make(stateIn(WorkflowState::breaking), moment);
    const BarContent content = contentOfWidget(rest, moment + 375, usualBarWidth);
    EXPECT_EQ(content.facts->timeText, "+01:15");
    EXPECT_EQ(content.facts->remainingSeconds, -75);
    EXPECT_EQ(content.details.at(1), "over since 15:05");
}

TEST(BarContent, hasTheLibrarysCaptionForPrograms)
{
    const WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::blockReview), moment);
    const BarContent content = contentOfWidget(summary, moment, usualBarWidth);
    EXPECT_EQ(content.facts->caption, "Review this session");
    EXPECT_EQ(content.details.at(0), "Look back on the block");
}

TEST(BarContent, readsTimesAsThePersonDoes)
{
    const TimeZone utc("UTC");
    const WidgetSnapshot rest = WidgetSnapshot::make(stateIn(WorkflowState::breaking), moment);
    const Instant now = moment + 375;
    EXPECT_EQ(
        bar::barContent(work::ShortView::of(rest, now), {now, base::Hours::twelve}, usualBarWidth).shortText,
        "Break over since 3:05 pm");
}

TEST(BarContent, hasThePercentageOfACountdown)
{
    const WidgetSnapshot focus = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    EXPECT_EQ(contentOfWidget(focus, moment, usualBarWidth).percentage, 0);
    EXPECT_EQ(contentOfWidget(focus, moment + 600, usualBarWidth).percentage, 40);
    const WidgetSnapshot idle = WidgetSnapshot::empty(moment);
    EXPECT_EQ(contentOfWidget(idle, moment, usualBarWidth).percentage, std::nullopt);
}

TEST(BarContent, hasTheQuestionsBeforeThePersonsText)
{
    WidgetSnapshot summary = summaryWith("Chapter one");
    BarContent content = contentOfWidget(summary, moment + 600, usualBarWidth);
    EXPECT_EQ(content.text, "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 4 questions \u00B7 Chapter one");
    EXPECT_EQ(content.classes, (Words{"focusing", "question"}));
    EXPECT_EQ(content.details,
              (Words{"Session 1 of 3", "15:00", "Outcome: Chapter one", "First action: Chapter one",
                     "Asked: Chapter one", "Asked: Chapter one", "Asked: Chapter one", "and 1 more"}));
    summary.openQuestionCount = 1;
    summary.openQuestions = {"Why?"};
    content = contentOfWidget(summary, moment + 600, usualBarWidth);
    EXPECT_EQ(content.text, "Focus 15:00 \u00B7 Session 1 of 3 \u00B7 1 question \u00B7 Chapter one");
}

TEST(BarContent, isCutToItsWidthInColumns)
{
    for (const std::string& text : hostileTexts) {
        for (const std::size_t width : {1u, 5u, 12u, 45u, 60u, 200u}) {
            SCOPED_TRACE(text + " in " + std::to_string(width));
            const BarContent content = contentOfWidget(summaryWith(text), moment, width);
            EXPECT_LE(base::columnsOf(content.text), width);
            EXPECT_LE(base::columnsOf(content.shortText), width);
            for (const std::string& detail : content.details) {
                EXPECT_LE(base::columnsOf(detail), 100u);
            }
        }
    }
    EXPECT_EQ(contentOfWidget(summaryWith("x"), moment, 8).text, "Focus 2\u2026");
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
                const BarContent content = contentOfWidget(summary, moment, width);
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
