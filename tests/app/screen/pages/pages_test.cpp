// The pages in windows of every size.
#include "screen/pages/pages.hpp"

#include "marked_block.hpp"
#include "program_testing.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/screen.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

std::string pictureOf(const QuillmereState& state, Size window, Charset charset = Charset::unicode)
{
    const Person person;
    person.has(state);
    Screen ui(workspace::Workspace::in(person.directory(), [&] { return person.now; }),
              work::Drafts(person.stateHome()), std::nullopt);
    ui.resize(window);
    return ui.picture(charset).text();
}

bool shows(const std::string& picture, const std::string& text)
{
    return picture.find(text) != std::string::npos;
}

QuillmereState withHostileTexts(QuillmereState state)
{
    const std::string hostile = "\x1b[2J\x1b]0;x\x07#{pane_pid}\u202Eevil\u202C \u65E5\u672C e\u0301";
    for (WorkSession& session : state.currentBlock->sessions) {
        session.plan.intendedOutcome = hostile;
        session.plan.firstAction = hostile;
    }
    state.currentBlock->outcomes.front().title = hostile;
    return state;
}

constexpr Size windows[] = {
    smallWindow, {.rows = 18, .columns = 64}, usualWindow, {.rows = 40, .columns = 140}};

TEST(Pages, showTheirKeysInEveryWindow)
{
    for (const Size window : windows) {
        SCOPED_TRACE(testing::Message() << window.columns << " by " << window.rows);
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::idle), window), "p plan a block"));
        EXPECT_TRUE(shows(pictureOf(stateWithScheduledBlock(), window), "c cancel it"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::blockPlanning), window), "^S begin now"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::sessionPlanning), window), "^S start focus"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::focusing), window), "space pause"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::sessionReview), window), "^S save, have a break"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::breaking), window), "e skip the break"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::blockReview), window), "^S finish the block"));
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::complete), window), "q quit"));
    }
}

TEST(Pages, countTheSessionsOfAScheduledBlock)
{
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->cycleCount = 1;
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "1 session of 25 min"));
    state.currentBlock->cycleCount = 2;
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "2 sessions of 25 min"));
}

TEST(Pages, showTheCountdownAndThePlanInEveryWindow)
{
    for (const Size window : windows) {
        const std::string picture = pictureOf(stateIn(WorkflowState::focusing), window, Charset::ascii);
        EXPECT_TRUE(shows(picture, "######  ######      ######  ######")) << picture;
        EXPECT_TRUE(shows(picture, "Outcome of session 1")) << picture;
        EXPECT_TRUE(shows(picture, "First action 1")) << picture;
    }
}

TEST(Pages, showTheWholePlanInLargeLayouts)
{
    for (const Size window : windows) {
        const std::string picture = pictureOf(stateIn(WorkflowState::focusing), window);
        EXPECT_EQ(shows(picture, "Phone in the drawer"), showsFullPlan(layout(familyFor(window))));
    }
}

TEST(Pages, haveOnlyAsciiForAsciiTerminals)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        for (const char character : pictureOf(stateIn(workflowState), usualWindow, Charset::ascii)) {
            EXPECT_TRUE(character == '\n' || (character >= ' ' && character <= '~'));
        }
    }
}

TEST(Pages, sanitizeTheTextsOfTheFiles)
{
    for (const WorkflowState workflowState :
         {WorkflowState::sessionPlanning, WorkflowState::focusing, WorkflowState::sessionReview,
          WorkflowState::breaking, WorkflowState::blockReview}) {
        for (const Size window : windows) {
            const std::string picture = pictureOf(withHostileTexts(stateIn(workflowState)), window);
            EXPECT_FALSE(shows(picture, "\x1b"));
            EXPECT_FALSE(shows(picture, "\u202E"));
        }
    }
}

TEST(SmallWindow, hasThePhaseTheTimeAndALine)
{
    const TimeZone here("UTC");
    EXPECT_EQ(pictureOf(stateIn(WorkflowState::focusing), {.rows = 5, .columns = 20}),
              "Focus Session 1 of 3\n"
              "25:00  until 15:25\n"
              "────────────────────\n"
              "Outcome of session 1\n"
              "space pause\n");
    const std::string idle = pictureOf(stateIn(WorkflowState::idle), {.rows = 5, .columns = 20});
    EXPECT_TRUE(shows(idle, "p plan a block")) << idle;
}

TEST(SmallWindow, saysThatTheTimeStands)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().pausedAt = moment;
    const std::string picture = pictureOf(state, {.rows = 5, .columns = 20});
    EXPECT_TRUE(shows(picture, "25:00  paused\n")) << picture;
    EXPECT_TRUE(shows(picture, "space go on")) << picture;
}

TEST(SmallWindow, hasLargeDigitsWhereRowsAreLeft)
{
    EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::focusing), {.rows = 9, .columns = 36}), "██████"));
}

TEST(SmallWindow, asksForMoreRoomForAForm)
{
    const std::string picture = pictureOf(stateIn(WorkflowState::sessionReview), {.rows = 5, .columns = 20});
    EXPECT_EQ(picture,
              "Review Review this …\n"
              "This needs 40\n"
              "columns and 12 rows.\n"
              "q quits.\n"
              "\n");
}

TEST(SmallWindow, saysWhenItIsTooSmall)
{
    for (const Size window : {Size{.rows = 4, .columns = 80}, Size{.rows = 24, .columns = 19}}) {
        EXPECT_TRUE(shows(pictureOf(stateIn(WorkflowState::focusing), window), "Too small"));
    }
    EXPECT_NO_FATAL_FAILURE(pictureOf(stateIn(WorkflowState::focusing), {.rows = 1, .columns = 1}));
}

TEST(Pages, saySinceWhenTheTimeIsOver)
{
    const TimeZone here("UTC");
    Canvas canvas(usualWindow);
    drawCountdown(canvas, {3, 4, 18, 72}, {stateIn(WorkflowState::breaking), {}, moment + 375}, {},
                  base::Hours::twentyFour);
    EXPECT_TRUE(shows(canvas.text(), "over since 15:05")) << canvas.text();
    EXPECT_FALSE(canvas.cell({3, 4}).look.accent);
    EXPECT_FALSE(shows(canvas.text(), "─")) << "the bar is full";
}

TEST(Pages, haveTheEndBesideTheBar)
{
    const TimeZone here("UTC");
    const std::string picture = pictureOf(stateIn(WorkflowState::focusing), usualWindow);
    EXPECT_TRUE(shows(picture, "──────  until 15:25\n")) << picture;
}

TEST(Pages, drawAPausedTimeHollow)
{
    const TimeZone here("UTC");
    QuillmereState state = stateIn(WorkflowState::focusing);
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "██████"));
    state.currentBlock->sessions.back().pausedAt = moment;
    const std::string picture = pictureOf(state, usualWindow);
    EXPECT_FALSE(shows(picture, "█")) << picture;
    EXPECT_TRUE(shows(picture, "┌───┐")) << picture;
    EXPECT_TRUE(shows(picture, "paused since 15:00")) << picture;
}

TEST(Pages, haveNoHeadingWithoutItsFacts)
{
    const work::Recall recall = {{"First heading", {{"One", "fact"}}}, {"Second heading", {{"Two", "fact"}}}};
    for (const std::size_t rows : {4u, 5u}) {
        Canvas canvas({24, 80});
        drawRecall(canvas, {0, 0, rows, 80}, recall, {});
        EXPECT_EQ(shows(canvas.text(), "Second heading"), rows == 5) << canvas.text();
    }
}

TEST(Pages, haveASignForEachSession)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->cycleCount = 3;
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "◐  ·  ·"));
}

TEST(Pages, sayWhatASessionIsForBesideItsTimeInAWideWindow)
{
    const std::string beside = "██" + std::string(24, ' ') + "Outcome of session 1";
    const QuillmereState state = stateIn(WorkflowState::focusing);
    EXPECT_TRUE(shows(pictureOf(state, {.rows = 24, .columns = 120}), beside));
    EXPECT_FALSE(shows(pictureOf(state, usualWindow), beside));
}

TEST(Pages, sayAFewFactsAboveTheFieldsInAUsualWindow)
{
    const std::string picture = pictureOf(stateIn(WorkflowState::sessionReview), usualWindow);
    EXPECT_TRUE(shows(picture,
                      "      Outcome of session 1\n"
                      "      First action  First action 1\n"
                      "      In the way    Phone in the drawer\n"))
        << picture;
    EXPECT_FALSE(shows(pictureOf(stateIn(WorkflowState::sessionReview), smallWindow), "First action 1"));
}

TEST(Pages, haveAtEachMomentTheWordsThatHelp)
{
    for (const WorkflowState state : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(state));
        expectAll(markersPromisedIn(state), pictureOf(markedStateIn(state), {.rows = 60, .columns = 200}));
    }
}

TEST(Pages, sayTheCountdownToAScheduledStartOfToday)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWithScheduledBlock();
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "Begins at 16:00, in 1 h"));
    state.currentBlock->plannedStart = moment + 3'599;
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "in 59 min\n"));
    state.currentBlock->plannedStart = moment + 59;
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "in 59 s\n"));
    state.currentBlock->plannedStart = moment + 86'400;
    EXPECT_FALSE(shows(pictureOf(state, usualWindow), "Begins at"));
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "2026-11-16 15:00"));
}

TEST(Pages, tellWhatHelpsWhileNothingRuns)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "You say what should come out of it, and why."));
    Block block = blockInWork(2, 1);
    block.completedAt = moment;
    block.reflection = sampleReflection();
    state.blockHistory.push_back(block);
    const std::string picture = pictureOf(state, usualWindow);
    EXPECT_TRUE(shows(picture, "Finished    1 block")) << picture;
    EXPECT_TRUE(shows(picture, "Close the door")) << picture;
    EXPECT_TRUE(shows(picture, "Finished last")) << picture;
    EXPECT_FALSE(shows(pictureOf(state, smallWindow), "Finished last"));
}

TEST(Pages, sayThatSomethingScrollsOnlyWhereItDoes)
{
    const QuillmereState state = stateIn(WorkflowState::sessionReview);
    EXPECT_TRUE(shows(pictureOf(state, usualWindow), "PgDn scroll"));
    EXPECT_FALSE(shows(pictureOf(state, {.rows = 60, .columns = 80}), "PgDn scroll"));
}

TEST(Pages, sayWhatWasMeantBesideTheReviewInAWideWindow)
{
    const std::string inWideWindow =
        pictureOf(stateIn(WorkflowState::sessionReview), {.rows = 40, .columns = 140});
    EXPECT_TRUE(shows(inWideWindow, "What was meant")) << inWideWindow;
    EXPECT_TRUE(shows(inWideWindow, "Phone in the drawer")) << inWideWindow;
    EXPECT_FALSE(shows(pictureOf(stateIn(WorkflowState::sessionReview), usualWindow), "What was meant"));
}

}  // namespace
}  // namespace quillmere::test
