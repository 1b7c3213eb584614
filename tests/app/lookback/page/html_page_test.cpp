// The page and its markup.
#include "lookback/page/html_page.hpp"

#include "figures_testing.hpp"
#include "lookback/page/markup.hpp"

#include "generated_history.hpp"
#include "generated_year.hpp"
#include "marked_block.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using figures::statistics;
using lookback::coordinate;
using lookback::element;
using lookback::escaped;
using lookback::htmlPage;

std::string pageAt(const QuillmereState& state) { return htmlPage(statistics(state, {}, day("2026-11-15"))); }

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// The messages and the exit code of a parser of XML.
ProcessEnding xmllintOf(const std::string& page)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "page.html", page);
    return run({.words = {"xmllint", "--nonet", "--noout", (directory.path() / "page.html").string()},
                .error = Channel::sameAsOut()});
}

TEST(Markup, sanitizesAndEscapesTexts)
{
    EXPECT_EQ(escaped("<a\x1b[2J\u202Eb\n\uFFFE>"), "&lt;a\uFFFD[2J\uFFFDb \uFFFD&gt;");
}

TEST(Markup, escapesAttributesButNotContent)
{
    EXPECT_EQ(element("p", {{"title", "\"<&"}, {"class", "a"}}, "<b></b>"),
              "<p title=\"&quot;&lt;&amp;\" class=\"a\"><b></b></p>");
    EXPECT_EQ(element("p", {}), "<p></p>");
}

TEST(Markup, writesCoordinatesWithOneDecimal)
{
    EXPECT_EQ(coordinate(0), "0.0");
    EXPECT_EQ(coordinate(12.345), "12.3");
    EXPECT_EQ(coordinate(-0.26), "-0.3");
}

TEST(Page, isWellFormedWhateverTextItShows)
{
    for (const QuillmereState& state :
         {QuillmereState::initial(moment), hostileState(), generatedYear(moment),
          stateWith({session(moment, -5)}),
          stateWith({session(Instant(-62'167'219'200), 1500), session(Instant(253'402'300'000), 799)})}) {
        const ProcessEnding ending = xmllintOf(pageAt(state));
        EXPECT_EQ(ending.code, 0);
        EXPECT_EQ(ending.out, "");
    }
    EXPECT_NE(xmllintOf("<html><br></html>").code, 0);
}

TEST(Page, showsTextsAsTheyWereWritten)
{
    const std::string page = pageAt(hostileState());
    EXPECT_TRUE(
        holds(page, "=&lt;b&gt;&quot;It&#39;s&quot;&lt;/b&gt;&amp;amp;&lt;/style&gt;&lt;/svg&gt;&lt;script"));
    EXPECT_FALSE(holds(page, "<script"));
    EXPECT_FALSE(holds(page, "\x1b"));
    EXPECT_FALSE(holds(page, "\u202E"));
}

TEST(Page, loadsNothingAndRunsNothing)
{
    const std::string page = pageAt(generatedYear(moment));
    for (const char* part : {" src=", " href=", "url(", "@import", "<script", "<link", "<img", "<iframe",
                             " on", "javascript:"}) {
        EXPECT_EQ(page.find(part + std::string(part == std::string(" on") ? "load=" : "")), std::string::npos)
            << part;
    }
    EXPECT_TRUE(holds(page, "default-src 'none'; style-src 'unsafe-inline'"));
    EXPECT_FALSE(holds(replaced(page, "xmlns=\"http://www.w3.org/1999/xhtml\"", ""), "https:"));
}

TEST(Page, showsTheFigures)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-11-14 10:00"), 3600), session(local("2026-11-15 10:00"), 1860, 60)});
    const std::string page = pageAt(state);
    for (const char* part : {
             "<dt>Today</dt><dd class=\"value\">30 min</dd><dd class=\"more\">yesterday 1 h</dd>",
             "<dt>This week</dt><dd class=\"value\">1 h 30 min</dd><dd class=\"more\">last week none</dd>",
             "<dt>Days in a row</dt><dd class=\"value\">2</dd><dd class=\"more\">longest: 2</dd>",
             "<dd class=\"value\">0 %</dd><dd class=\"more\">0 yes, 2 half, 0 no</dd>",
             "<title>Sat 2026-11-14: 1 h</title>",
             "<title>2026-W46: 1 h 30 min, planned 50 min</title>",
             "<title>2026-11: 0 yes, 2 half, 0 no</title>",
             "<title>2026-W46: energy 4.0</title>",
             "<tr><th scope=\"row\">2026-11-14</th><td>1 h</td><td>1</td></tr>",
             "<tr><th scope=\"row\">2026-11</th><td>1 h 30 min</td><td>1 h 30 min</td><td>50 min</td>"
             "<td>1 min</td><td>2</td></tr>",
             "<tr><th scope=\"row\">4</th><td>0 yes, 2 half, 0 no</td></tr>",
             "<tr><th scope=\"row\">2026-11-15 10:00</th><td>30 min</td><td>half</td>"
             "<td class=\"text\">Outcome of session 1</td><td class=\"text\">Result 1</td></tr>",
         }) {
        EXPECT_TRUE(holds(page, part)) << part << "\n" << page;
    }
}

/// The number in an attribute of the element at `place`.
double numberIn(const std::string& page, std::size_t place, const std::string& attribute)
{
    const std::size_t begin = page.find(" " + attribute + "=\"", place) + attribute.size() + 3;
    return std::stod(page.substr(begin, page.find('"', begin) - begin));
}

TEST(Page, hasTheFiguresOfTheDaysThatWereAskedForInLarge)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2026-11-14 10:00"), 3600), session(local("2026-11-15 10:00"), 1860, 60)});
    const figures::Range range{.since = day("2026-11-14"), .until = std::nullopt};
    const std::string page = htmlPage(statistics(state, range, day("2026-11-15")));
    EXPECT_TRUE(
        holds(page, "<dd class=\"value\">1 h 30 min</dd><dd class=\"more\">2 sessions on 2 days</dd>"));
    EXPECT_FALSE(holds(page, "<dt>Today</dt>"));
}

TEST(Page, showsPlannedTimeHoweverMuchWasWorked)
{
    const TimeZone here("UTC");
    for (const double worked : {750.0, 1500.0, 3000.0}) {
        const std::string page = pageAt(stateWith({session(moment, worked)}));
        const std::size_t planned = page.find("<rect class=\"planned\"");
        ASSERT_NE(planned, std::string::npos);
        const std::size_t focus = page.find("<rect class=\"focus\"", planned);
        EXPECT_LT(numberIn(page, planned, "x") + 2, numberIn(page, focus, "x"));
        EXPECT_GT(numberIn(page, planned, "width"), numberIn(page, focus, "width") + 4);
        EXPECT_NEAR(numberIn(page, focus, "height") / numberIn(page, planned, "height"), worked / 1500, 0.01);
    }
}

TEST(Page, showsWorkedAndPlannedTimeOfTheSameSessions)
{
    // From Sunday to Monday: focus in both weeks, in the second one of a session that belongs to the first.
    const TimeZone here("UTC");
    const std::string page = pageAt(stateWith({session(local("2026-11-08 23:50"), 1500)}));
    EXPECT_TRUE(holds(page, "<title>2026-W45: 25 min, planned 25 min</title>"));
    EXPECT_FALSE(holds(page, "<title>2026-W46: "));
    EXPECT_TRUE(holds(page, "<title>Mon 2026-11-09: 15 min</title>"));
}

TEST(Page, saysHowPausesCountInASessionOverMidnight)
{
    EXPECT_TRUE(holds(pageAt(stateWith({session(moment, 1500)})), "they are taken to come last."));
}

std::size_t occurrences(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos;
         place = text.find(part, place + 1)) {
        ++count;
    }
    return count;
}

TEST(Page, hasALabelForEveryDrawingAndATableForEveryChart)
{
    const std::string page = pageAt(generatedYear(moment));
    const std::size_t drawings = occurrences(page, "<svg ");
    EXPECT_EQ(drawings, 9u);
    EXPECT_EQ(occurrences(page, " role=\"img\" aria-label=\""), drawings);
    // The year has one table for its two halves.
    EXPECT_EQ(occurrences(page, "<details>"), drawings - 1);
    EXPECT_EQ(occurrences(page, "<caption>"), drawings - 1);
    EXPECT_TRUE(holds(page, "<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">"));
}

TEST(Page, showsTheLastTwentySessionsTheNewestFirst)
{
    const TimeZone here("UTC");
    std::vector<WorkSession> sessions;
    for (int index = 0; index < 25; ++index) {
        sessions.push_back(session(moment + index * 60, 30));
        sessions.back().plan.intendedOutcome = "Number " + std::to_string(index) + ".";
    }
    const std::string whole = pageAt(stateWith(sessions));
    const std::string page = whole.substr(0, whole.find("The blocks"));
    EXPECT_TRUE(holds(page, "Number 5."));
    EXPECT_FALSE(holds(page, "Number 4."));
    EXPECT_LT(page.find("Number 24."), page.find("Number 23."));
}

/// Blocks of one session each.
QuillmereState stateWithBlocks(int count)
{
    QuillmereState state = QuillmereState::initial(moment);
    for (int index = 0; index < count; ++index) {
        QuillmereState one = stateWith({session(moment - index * 86'400, 1500)});
        one.blockHistory.front().outcomes.front().title = "Block " + std::to_string(index) + ".";
        state.blockHistory.push_back(one.blockHistory.front());
    }
    return state;
}

TEST(Page, tellsTheNewestHundredBlocksWholeAndTheOthersWhenAsked)
{
    const QuillmereState state = stateWithBlocks(102);
    const figures::LookBack look = statistics(state, {}, day("2026-11-15"));
    const std::string page = htmlPage(look);
    EXPECT_TRUE(holds(page, "<strong>Block 99.;"));
    EXPECT_FALSE(holds(page, "<strong>Block 100."));
    EXPECT_LT(page.find("<strong>Block 0."), page.find("<strong>Block 1."));
    EXPECT_TRUE(holds(page, "2 more before these"));
    const std::string whole = htmlPage(look, {.blocks = lookback::allBlocksOnPage});
    EXPECT_TRUE(holds(whole, "<strong>Block 101.;"));
    EXPECT_FALSE(holds(whole, "more before these"));
}

TEST(Page, hasEveryWordOfABlock)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.blockHistory = {markedBlock()};
    expectAll(markersOf(state.blockHistory.front()), pageAt(state));
}

/// The page for somebody else.
std::string reducedPageOf(const QuillmereState& state, const lookback::Contents& contents)
{
    const QuillmereState reduced = lookback::reducedTo(contents, state);
    return htmlPage(statistics(reduced, {}, day("2026-11-15")), {.contents = contents});
}

TEST(Page, hasNoWordOfAPersonWithoutTexts)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.blockHistory = {markedBlock()};
    const std::string page = reducedPageOf(state, {.texts = false});
    for (const std::string& marker : markersOf(state.blockHistory.front())) {
        EXPECT_FALSE(holds(page, marker)) << marker;
    }
    EXPECT_TRUE(holds(page, "When do I focus best?"));
    EXPECT_TRUE(holds(page, "How was I?"));
    EXPECT_TRUE(holds(page, "This page leaves out texts."));
    EXPECT_FALSE(holds(page, "What did I learn?"));
}

TEST(Page, doesNotDependOnRatingsWithoutThem)
{
    const lookback::Contents contents{.ratings = false};
    QuillmereState state = generatedHistory(1, local("2026-11-15 12:00"));
    const std::string page = reducedPageOf(state, contents);
    for (Block& block : state.blockHistory) {
        for (WorkSession& rated : block.sessions) {
            rated.plan.energy = 6 - rated.plan.energy;
            rated.plan.morale = rated.plan.morale % 5 + 1;
        }
    }
    EXPECT_EQ(reducedPageOf(state, contents), page);
    for (const char* const word : {">Energy", "Morale", "How was I?"}) {
        EXPECT_FALSE(holds(page, word)) << word;
    }
    EXPECT_TRUE(holds(page, "What did I learn?"));
}

TEST(Page, saysThatThereIsNothing)
{
    EXPECT_TRUE(holds(pageAt(QuillmereState::initial(moment)), "<p>No focus session has ended yet.</p>"));
}

TEST(Page, hasNoLevelsWhereThereWasNoFocus)
{
    const std::string page = pageAt(stateWith({session(moment, -5)}));
    EXPECT_FALSE(holds(page, "up to none"));
}

}  // namespace
}  // namespace quillmere::test
