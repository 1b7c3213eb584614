// The answers to the questions, on every surface.
#include "lookback/answers/answer.hpp"

#include "figures_testing.hpp"
#include "lookback/json_report.hpp"
#include "lookback/page/html_page.hpp"
#include "lookback/terminal/terminal_report.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "generated_year.hpp"

namespace quillmere::test {
namespace {

using figures::Habits;
using figures::statistics;
using lookback::Answer;
using lookback::answersOf;

constexpr const char* allQuestions[] = {
    "How much did I focus?", "When do I focus best?", "What did I work on?", "Did plans come true?",
    "What got in the way?",  "What did I learn?",     "How was I?",          "Breaks and pauses"};

const lookback::TerminalPage plainTerminal{.style = base::Style(false), .width = 80, .drawsBlocks = false};

Answer answerTo(const std::string& question, const LookBack& look)
{
    for (const Answer& answer : answersOf(look)) {
        if (answer.question == question) {
            return answer;
        }
    }
    ADD_FAILURE() << question;
    return {};
}

/// The cells of a table, for comparisons.
std::string textOf(const lookback::AnswerTable& table)
{
    std::string text;
    for (const lookback::AnswerRow& row : table.rows) {
        for (const std::string& cell : row.cells) {
            text += cell + " | ";
        }
        text += "\n";
    }
    return text;
}

QuillmereState bareState()
{
    WorkSession bare = session(moment, 0);
    bare.review.reset();
    bare.plan.intendedOutcome.clear();
    bare.plan.energy = 0;
    bare.plan.morale = 9;
    QuillmereState state = stateWith({bare});
    state.blockHistory.front().outcomes.clear();
    return state;
}

QuillmereState tenYears()
{
    std::vector<WorkSession> sessions;
    for (int month = 0; month < 120; ++month) {
        sessions.push_back(session(moment - month * 30 * 86'400.0, 1500));
    }
    std::reverse(sessions.begin(), sessions.end());
    return stateWith(sessions);
}

std::vector<QuillmereState> oddStates()
{
    return {QuillmereState::initial(moment),
            stateWith({session(moment, 1500)}),
            stateWith({session(moment, -5)}),
            stateWith({session(moment, 60, 60)}),
            stateIn(WorkflowState::focusing),
            bareState(),
            tenYears(),
            hostileState(),
            stateWith({session(Instant(-62'167'219'200), 1500), session(Instant(253'402'300'000), 799)})};
}

TEST(Answers, divideNothingByNothing)
{
    for (const QuillmereState& state : oddStates()) {
        for (const std::optional<double>& goal : {std::optional<double>(), std::optional(3600.0)}) {
            const Habits habits{.dailyGoalSeconds = goal, .daysOff = {std::chrono::Sunday}};
            const LookBack look = statistics(state, {}, day("2026-11-15"), habits);
            const std::string text =
                lookback::terminalReport(look, plainTerminal) +
                lookback::terminalSummary(look, plainTerminal) +
                lookback::lookBackJson(look).dump(-1, ' ', true, base::Json::error_handler_t::replace);
            for (const char* const wrong : {"nan", "inf", "-0"}) {
                EXPECT_EQ(text.find(std::string(" ") + wrong), std::string::npos) << text;
            }
            EXPECT_EQ(answersOf(look).size(), std::size(allQuestions));
        }
    }
}

TEST(Answers, haveEachQuestionAsAHeadingOnThePageAndInTheTerminal)
{
    const QuillmereState state = generatedHistory(1, moment);
    const LookBack look = statistics(state, {}, day("2026-11-15"));
    const std::string page = lookback::htmlPage(look);
    const std::string report = lookback::terminalReport(look, plainTerminal);
    std::size_t place = 0;
    for (const std::string question : allQuestions) {
        EXPECT_NE(page.find("<h2>" + question + "</h2>"), std::string::npos) << question;
        const std::size_t heading = report.find("\n" + question + "\n");
        ASSERT_NE(heading, std::string::npos) << question;
        EXPECT_GT(heading, place);
        place = heading;
    }
}

TEST(Answers, sayHowMuchOfTheGoalIsReachedAndWhatItWasBefore)
{
    const TimeZone here("UTC");
    const Habits habits{.dailyGoalSeconds = 3600, .daysOff = {std::chrono::Saturday, std::chrono::Sunday}};
    const QuillmereState state =
        stateWith({session(local("2026-11-10 10:00"), 7200), session(local("2026-11-13 10:00"), 3600),
                   session(local("2026-11-18 10:00"), 5400)});
    const Answer answer = answerTo("How much did I focus?", statistics(state, {}, day("2026-11-18"), habits));
    ASSERT_EQ(answer.tables.size(), 1u);
    EXPECT_EQ(textOf(answer.tables[0]),
              "Today | 1 h 30 min | 1 h | 150 % | none | none | \n"
              "This week | 1 h 30 min | 5 h | 30 % | 3 h | 2 h | \n"
              "Last week | 3 h | 5 h | 60 % | none | none | \n"
              "This month | 4 h 30 min | 21 h | 21 % | none | none | \n");
    EXPECT_EQ(answer.inShort,
              "Today 1 h 30 min of 1 h (150 %). This week 1 h 30 min of 5 h (30 %); last week 3 h, 2 h of it "
              "by this day");
}

TEST(Answers, nameTheHoursFromTheBeginningOfThePersonsDay)
{
    const TimeZone here("UTC");
    const Habits habits{.dayBeginsAtHour = 4, .hours = base::Hours::twelve};
    const QuillmereState state =
        stateWith({session(local("2026-11-10 01:00"), 600), session(local("2026-11-10 22:30"), 1200)});
    const Answer answer = answerTo("When do I focus best?", statistics(state, {}, day("2026-11-15"), habits));
    ASSERT_EQ(answer.tables.size(), 2u);
    EXPECT_EQ(textOf(answer.tables[0]),
              "10 pm | 20 min | 1 | 50 % | \n"
              "1 am | 10 min | 1 | 50 % | \n");
    EXPECT_EQ(answer.inShort, "Too few sessions have been reviewed to say");
}

TEST(Answers, tellHowABlockEnded)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWith({session(moment, 1500), session(moment + 2000, 3000)});
    const Answer answer = answerTo("Did plans come true?", statistics(state, {}, day("2026-11-15")));
    EXPECT_EQ(answer.inShort, "2 of 3 sessions in 1 block, 1 ended early; 25 min over in 1 session");
    EXPECT_EQ(textOf(answer.tables.at(0)),
              "Chapter one; Chapter two | 2026-11-15 | 2 of 3 | 50 % | ended early | \n");
}

TEST(Answers, sayHowMuchWasDoneWithoutAnOutcome)
{
    const Answer answer = answerTo("What did I work on?", statistics(bareState(), {}, day("2026-11-15")));
    EXPECT_TRUE(answer.inShort.starts_with("Most without an outcome: ")) << answer.inShort;
    EXPECT_EQ(answer.inShort.find("reached"), std::string::npos) << answer.inShort;
}

TEST(Answers, showTheNewestLessonsAndSayHowManyThereAre)
{
    const QuillmereState state = generatedYear(moment);
    const Answer answer = answerTo("What did I learn?", statistics(state, {}, day("2026-11-15")));
    EXPECT_EQ(answer.tables.at(0).rows.size(), 12u);
    EXPECT_NE(answer.inShort.find(" in all: quillmere history --search WORD)"), std::string::npos);
}

}  // namespace
}  // namespace quillmere::test
