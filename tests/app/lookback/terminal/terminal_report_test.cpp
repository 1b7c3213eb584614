// The look back in a terminal.
#include "lookback/terminal/terminal_report.hpp"

#include "base/text/columns.hpp"
#include "figures_testing.hpp"
#include "generated_history.hpp"
#include "generated_year.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <algorithm>
#include <sstream>

namespace quillmere::test {
namespace {

using base::Style;
using figures::statistics;
using lookback::TerminalPage;
using lookback::terminalReport;
using lookback::terminalSummary;

TerminalPage plainPage(std::size_t width)
{
    return {.style = Style(false), .width = width, .drawsBlocks = false};
}

LookBack reportOn(const QuillmereState& state) { return statistics(state, {}, day("2026-11-15")); }

QuillmereState twoDays()
{
    QuillmereState state =
        stateWith({session(local("2026-11-14 10:00"), 3600), session(local("2026-11-15 10:00"), 1860, 60)});
    state.blockHistory[0].sessions[1].review->completion = CompletionResult::yes;
    return state;
}

TEST(TerminalReport, hasFactsAndCharts)
{
    const TimeZone here("UTC");
    const QuillmereState state = twoDays();
    EXPECT_EQ(terminalReport(reportOn(state), plainPage(60)),
              "Look back  up to 2026-11-15\n"
              "\n"
              "How much did I focus?\n"
              "Today 30 min. This week 1 h 30 min; last week none\n"
              "Span        Focus       Goal  Share  Span before\n"
              "Today       30 min      -     -      1 h\n"
              "This week   1 h 30 min  -     -      none\n"
              "Last week   none        -     -      none\n"
              "This month  1 h 30 min  -     -      none\n"
              "\n"
              "In all\n"
              "Focus        1 h 30 min on 2 days, in 2 sessions\n"
              "Streak       2 days by now, longest 2 days (2026-11-14 to\n"
              "             2026-11-15)\n"
              "Completion   yes 1 (50 %), half 1 (50 %), no 0 (0 %)\n"
              "Planned      50 min, worked 1 h 30 min (180 %)\n"
              "Pauses       1 min in 1 session\n"
              "Between      median 23 h between sessions of a block,\n"
              "             planned 5 min\n"
              "Energy       4.0 of 5 on average, morale 3.0\n"
              "\n"
              "When do I focus best?\n"
              "Too few sessions have been reviewed to say\n"
              "Hour   Focus       Sessions  Reached  Focus\n"
              "10:00  1 h 30 min  2         75 %     ######################\n"
              "\n"
              "Weekday    Focus   Sessions  Reached  Focus\n"
              "Monday     none    0         -\n"
              "Tuesday    none    0         -\n"
              "Wednesday  none    0         -\n"
              "Thursday   none    0         -\n"
              "Friday     none    0         -\n"
              "Saturday   1 h     1         50 %     ######################\n"
              "Sunday     30 min  1         100 %    ###########\n"
              "\n"
              "What did I work on?\n"
              "Most on Chapter one: 1 h 30 min (100 % of the time), 75 %\n"
              "reached; 1 outcome in all\n"
              "Outcome      Worked      Share  Sessions  Reached\n"
              "Chapter one  1 h 30 min  100 %  2         75 %     #+\n"
              "\n"
              "Did plans come true?\n"
              "2 of 3 sessions in 1 block, 1 ended early; 40 min over in 2\n"
              "sessions\n"
              "Latest block      Begun       Sessions  Reached  End\n"
              "Chapter one; Ch.  2026-11-14  2 of 3    75 %     ended early\n"
              "\n"
              "What got in the way?\n"
              "2 of 2 reviewed sessions were disturbed; most often: mail\n"
              "(2)\n"
              "Word  Sessions  Foreseen  Sessions\n"
              "mail  2         0         ##############################\n"
              "\n"
              "What did I learn?\n"
              "Last: Start with the hard part (2 in all: quillmere history\n"
              "--search WORD)\n"
              "Lesson or improvement     Day         From\n"
              "Start with the hard part  2026-11-15  Outcome of session 1\n"
              "Start with the hard part  2026-11-14  Outcome of session 1\n"
              "\n"
              "How was I?\n"
              "Energy 4.0 of 5, morale 3.0\n"
              "Weekday    Energy  Morale  Reached\n"
              "Monday     -       -       -\n"
              "Tuesday    -       -       -\n"
              "Wednesday  -       -       -\n"
              "Thursday   -       -       -\n"
              "Friday     -       -       -\n"
              "Saturday   4.0     3.0     50 %\n"
              "Sunday     4.0     3.0     100 %\n"
              "\n"
              "Breaks and pauses\n"
              "No breaks; pauses of 1 min in 1 session, 0 longer than a\n"
              "break\n"
              "        Number  Taken  Planned  Median  Longest  Overlong\n"
              "Pauses  1       1 min  -        -       1 min    0\n"
              "\n"
              "The year to 2026-11-15\n"
              "       Dec Jan Feb Mar  Apr May  Jun Jul Aug  Sep Oct Nov\n"
              "Mon ....................................................."
              "\n"
              "Tue ....................................................."
              "\n"
              "Wed ....................................................."
              "\n"
              "Thu ....................................................."
              "\n"
              "Fri ....................................................."
              "\n"
              "Sat ....................................................#"
              "\n"
              "Sun ....................................................+"
              "\n"
              "    less .-+*# more; most 1 h\n"
              "\n"
              "Focus day by day\n"
              "Sat 2026-11-14 ###################################### 1 h\n"
              "Sun 2026-11-15 ################### 30 min\n"
              "\n"
              "Focus week by week, worked of planned\n"
              "2026-W46       ######################## 1 h 30 min of 50 min\n"
              "\n"
              "Focus month by month, worked of planned\n"
              "2026-11        ######################## 1 h 30 min of 50 min\n"
              "\n"
              "Energy and morale, month by month, of 5\n"
              "               energy                morale\n"
              "2026-11        4.0  #############    3.0  ##########\n"
              "\n"
              "Completion by energy and by morale\n"
              "               # yes  + half  - no\n"
              "energy 1       none\n"
              "energy 2       none\n"
              "energy 3       none\n"
              "energy 4       ##########++++++++++ 1 yes, 1 half, 0 no\n"
              "energy 5       none\n"
              "morale 1       none\n"
              "morale 2       none\n"
              "morale 3       ##########++++++++++ 1 yes, 1 half, 0 no\n"
              "morale 4       none\n"
              "morale 5       none\n"
              "\n"
              "Of what was reached, half counts as a half. A best time has\n"
              "a twentieth of all sessions at the least.\n");
}

TEST(TerminalReport, comparesWorkedAndPlannedTimeOfTheSameSessions)
{
    // From Sunday to Monday: focus in both weeks, of a session that was planned in the first.
    const TimeZone here("UTC");
    const QuillmereState state = stateWith({session(local("2026-11-08 23:50"), 1500)});
    const std::string text = terminalReport(reportOn(state), plainPage(60));
    EXPECT_NE(text.find("########## 25 min of 25 min\n2026-W46       none\n"), std::string::npos) << text;
}

TEST(TerminalReport, drawsBlocksOfUnicodeWhereTheTerminalShowsThem)
{
    const TimeZone here("UTC");
    const QuillmereState state = twoDays();
    const std::string text =
        terminalReport(reportOn(state), {.style = Style(false), .width = 61, .drawsBlocks = true});
    EXPECT_NE(text.find("Sun 2026-11-15 ▇▇▇▇▇▇▇▇▇▇▇▇▇▇▇▇▇▇▇▌ 30 min\n"), std::string::npos) << text;
    EXPECT_NE(text.find("less ·░▒▓█ more"), std::string::npos);
    EXPECT_NE(text.find("energy 4       ▇▇▇▇▇▇▇▇▇▇▒▒▒▒▒▒▒▒▒▒ 1 yes, 1 half, 0 no\n"), std::string::npos)
        << text;
}

TEST(TerminalReport, isNeverWiderThanThePage)
{
    const TimeZone here("Europe/Berlin");
    const QuillmereState state = generatedYear(moment);
    for (const std::size_t width : {48u, 57u, 80u, 120u}) {
        for (const bool drawsBlocks : {false, true}) {
            const TerminalPage page{.style = Style(false), .width = width, .drawsBlocks = drawsBlocks};
            std::istringstream lines(terminalReport(reportOn(state), page) +
                                     terminalSummary(reportOn(state), page));
            for (std::string line; std::getline(lines, line);) {
                EXPECT_LE(base::columnsOf(line), width) << line;
                EXPECT_FALSE(line.ends_with(' ')) << line;
            }
        }
    }
}

TEST(TerminalSummary, fitsOnAScreenHoweverMuchThereIsToTell)
{
    const TimeZone here("Europe/Berlin");
    for (const QuillmereState& state : {generatedYear(moment), hostileState(), generatedHistory(3, moment)}) {
        for (const std::size_t width : {48u, 80u}) {
            const figures::Habits habits{.dailyGoalSeconds = 14'400};
            const Range week{.since = day("2026-11-09"), .until = day("2026-11-15")};
            const std::string text =
                terminalSummary(statistics(state, week, day("2026-11-15"), habits), plainPage(width));
            EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 24) << text;
            EXPECT_TRUE(text.ends_with("\nWith --all: the tables and the charts.\n")) << text;
            EXPECT_NE(text.find("\nBreaks and pauses"), std::string::npos) << text;
        }
    }
}

TEST(TerminalReport, isAsciiOnAPlainPage)
{
    const QuillmereState state = generatedYear(moment);
    const std::string text = terminalReport(reportOn(state), plainPage(80));
    EXPECT_TRUE(std::all_of(text.begin(), text.end(),
                            [](char character) { return static_cast<unsigned char>(character) < 0x7F; }));
}

TEST(TerminalReport, isColouredWhereColourIsWanted)
{
    const TimeZone here("UTC");
    const QuillmereState state = twoDays();
    const std::string text =
        terminalReport(reportOn(state), {.style = Style(true), .width = 60, .drawsBlocks = false});
    EXPECT_NE(text.find("\x1b[31m###################\x1b[0m 30 min\n"), std::string::npos) << text;
}

TEST(TerminalReport, saysThatThereIsNothing)
{
    const QuillmereState state = QuillmereState::initial(moment);
    EXPECT_EQ(terminalReport(reportOn(state), plainPage(80)), "No focus session has ended yet.\n");
    EXPECT_EQ(terminalReport(
                  statistics(state, {.since = day("2026-11-01"), .until = std::nullopt}, day("2026-11-15")),
                  plainPage(80)),
              "No focus session has ended in that time, 2026-11-01 to 2026-11-15.\n");
}

TEST(TerminalReport, countsSessionsWithoutAKnownTime)
{
    const QuillmereState state = stateWith({session(moment, -5)});
    EXPECT_NE(terminalReport(reportOn(state), plainPage(80))
                  .find("Not counted  the time of 1 session, whose start and end cannot be right\n"),
              std::string::npos);
}

TEST(TerminalPage, drawsBlocksWhereTheTerminalUsesUtf8)
{
    for (const auto& [locale, drawsBlocks] : {std::pair{"C.UTF-8", true}, std::pair{"C", false}}) {
        const EnvironmentVariable variable("LC_ALL", locale);
        EXPECT_EQ(lookback::terminalPage(Style(false), false).drawsBlocks, drawsBlocks);
    }
}

TEST(TerminalPage, isAsWideAsTheTerminalWithinBounds)
{
    for (const auto& [columns, width] :
         {std::pair{"100", 100u}, std::pair{"20", 48u}, std::pair{"500", 120u}}) {
        const EnvironmentVariable variable("COLUMNS", columns);
        EXPECT_EQ(lookback::terminalPage(Style(false), true).width, width);
        EXPECT_EQ(lookback::terminalPage(Style(false), false).width, 80u);
    }
}

}  // namespace
}  // namespace quillmere::test
