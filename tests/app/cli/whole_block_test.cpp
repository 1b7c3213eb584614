// A whole block, from plan to reflection, as a person types it.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// Some time passes, then a command runs.
struct Typed {
    double secondsLater;
    Words words;
    std::string_view done;  ///< the first line of the output
    WorkflowState leadsTo;
};

const std::vector<Typed>& wholeBlock()
{
    using enum WorkflowState;
    static const std::vector<Typed> steps = {
        {0,
         {"plan",       "--outcome",   "Chapter one",
          "--outcome",  "Chapter two", "--why",
          "A deadline", "--done-test", "Both read aloud",
          "--hazards",  "Mail",        "--check",
          "2000 words", "--notes",     "In the blue folder",
          "--focus",    "25m",         "--break",
          "5m",         "--cycles",    "2",
          "--start"},
         "The block has begun.",
         sessionPlanning},
        {60,
         {"focus", "--outcome", "An outline", "--first-action", "Open the notes", "--hazards", "Phone away",
          "--framing", "A letter to a friend", "--energy", "4", "--morale", "5", "--towards", "2"},
         "Focus.",
         focusing},
        {600, {"pause"}, "Paused.", focusing},
        {90, {"ask", "Shall I roll back?"}, "The question waits for an answer.", focusing},
        {30, {"answer", "1", "Yes"}, "Answered.", focusing},
        {60, {"resume"}, "Focus goes on.", focusing},
        {300, {"end"}, "The focus session has ended.", sessionReview},
        {20,
         {"review",
          "--completion",
          "half",
          "--result",
          "Four headings",
          "--distractions",
          "The door",
          "--improvement",
          "Sort later",
          "--next-outcome",
          "A draft",
          "--next-first-action",
          "One heading",
          "--next-hazards",
          "No mail",
          "--next-framing",
          "Badly is enough",
          "--next-energy",
          "2",
          "--next-morale",
          "3",
          "--next-towards",
          "1"},
         "The review is saved.",
         breaking},
        {200, {"break", "extend", "90s"}, "The break is longer now.", breaking},
        {100, {"break", "end"}, "The break has ended.", sessionPlanning},
        {10, {"focus"}, "Focus.", focusing},
        {1200, {"end"}, "The focus session has ended.", sessionReview},
        {10, {"review", "--completion", "Yes"}, "The review is saved.", blockReview},
        {30,
         {"reflect", "--output", "A chapter", "--comparison", "Faster", "--bogged-down", "The order",
          "--went-well", "Writing first", "--lessons", "Close the door"},
         "The block is finished.",
         idle},
    };
    return steps;
}

TEST(WholeBlock, leadsAPersonFromPlanToReflection)
{
    Person person;
    for (const Typed& step : wholeBlock()) {
        SCOPED_TRACE(step.words.front());
        const Ending ending = person.typesLater(step.secondsLater, step.words);
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_EQ(ending.out.substr(0, step.done.size() + 2), std::string(step.done) + "\n\n");
        EXPECT_EQ(ending.err, "");
        EXPECT_EQ(person.state().workflowState, step.leadsTo);
        EXPECT_TRUE(filesAgree(person));
        EXPECT_EQ(person.names(),
                  (Words{"agent-state.json", "state.json", std::string(WidgetSnapshotStore::fileName)}));
    }
}

TEST(WholeBlock, isReportedAsJsonStepByStep)
{
    Person person;
    for (const Typed& step : wholeBlock()) {
        SCOPED_TRACE(step.words.front());
        Words words = step.words;
        words.push_back("--json");
        const Ending ending = person.typesLater(step.secondsLater, words);
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_EQ(ending.err, "");
        EXPECT_EQ(keysOf(ending.out), (Words{"done", "events", "status"}));
        EXPECT_EQ(jsonAt("/done", ending.out), '"' + std::string(step.done) + '"');
        EXPECT_EQ(jsonAt("/events", ending.out), "[]");
        EXPECT_EQ(jsonAt("/status/workflow_state", ending.out),
                  '"' + std::string(rawValue(step.leadsTo)) + '"');
        EXPECT_EQ(jsonAt("/status/widget", ending.out),
                  jsonAt("", textOf(person.directory() / WidgetSnapshotStore::fileName)));
        EXPECT_TRUE(filesAgree(person));
    }
}

/// The state after all commands.
QuillmereState finishedState(Person& person)
{
    for (const Typed& step : wholeBlock()) {
        EXPECT_EQ(person.typesLater(step.secondsLater, step.words).code, ExitCode::done);
    }
    return person.state();
}

TEST(WholeBlock, keepsTheTextsOfTheBlock)
{
    Person person;
    const QuillmereState state = finishedState(person);
    EXPECT_FALSE(state.currentBlock);
    ASSERT_EQ(state.blockHistory.size(), 1u);
    const Block& block = state.blockHistory.front();
    ASSERT_EQ(block.outcomes.size(), 2u);
    EXPECT_EQ(block.outcomes[0].title, "Chapter one");
    EXPECT_EQ(block.outcomes[1].title, "Chapter two");
    EXPECT_EQ(block.whyValue, "A deadline");
    EXPECT_EQ(block.doneTest, "Both read aloud");
    EXPECT_EQ(block.hazards, "Mail");
    EXPECT_EQ(block.measurableCheck, "2000 words");
    EXPECT_EQ(block.contextNotes, "In the blue folder");
    EXPECT_EQ(block.focusDurationSeconds, 1500);
    EXPECT_EQ(block.breakDurationSeconds, 300);
    EXPECT_EQ(block.cycleCount, 2);
    EXPECT_EQ(block.createdAt, moment);
    EXPECT_EQ(block.completedAt, moment + 2710);
    EXPECT_EQ(block.reflection, (BlockReview{.outputProduced = "A chapter",
                                             .normalComparison = "Faster",
                                             .boggedDown = "The order",
                                             .wentWell = "Writing first",
                                             .lessons = "Close the door"}));
}

TEST(WholeBlock, keepsThePlansAndReviewsOfItsSessions)
{
    Person person;
    const QuillmereState state = finishedState(person);
    ASSERT_EQ(state.blockHistory.size(), 1u);
    const Block& block = state.blockHistory.front();
    ASSERT_EQ(block.sessions.size(), 2u);
    const WorkSession& first = block.sessions[0];
    EXPECT_EQ(first.plan, (SessionPlan{.id = first.plan.id,
                                       .blockOutcomeID = block.outcomes[1].id,
                                       .intendedOutcome = "An outline",
                                       .firstAction = "Open the notes",
                                       .hazardsMitigation = "Phone away",
                                       .nicuFraming = "A letter to a friend",
                                       .energy = 4,
                                       .morale = 5}));
    EXPECT_EQ(first.startedAt, moment + 60);
    EXPECT_EQ(first.accumulatedPausedSeconds, 180);
    EXPECT_EQ(first.endedAt, moment + 1140);
    ASSERT_TRUE(first.review);
    EXPECT_EQ(*first.review, (SessionReview{.id = first.review->id,
                                            .completion = CompletionResult::half,
                                            .noteworthyResult = "Four headings",
                                            .distractions = "The door",
                                            .improvement = "Sort later"}));
    const WorkSession& second = block.sessions[1];
    EXPECT_EQ(second.plan, (SessionPlan{.id = second.plan.id,
                                        .blockOutcomeID = block.outcomes[0].id,
                                        .intendedOutcome = "A draft",
                                        .firstAction = "One heading",
                                        .hazardsMitigation = "No mail",
                                        .nicuFraming = "Badly is enough",
                                        .energy = 2,
                                        .morale = 3}));
    ASSERT_TRUE(second.review);
    EXPECT_EQ(second.review->completion, CompletionResult::yes);
}

TEST(WholeBlock, keepsTheQuestionAndItsAnswer)
{
    Person person;
    const QuillmereState state = finishedState(person);
    ASSERT_EQ(state.agentQuestions.size(), 1u);
    EXPECT_EQ(state.agentQuestions[0].question, "Shall I roll back?");
    EXPECT_EQ(state.agentQuestions[0].createdAt, moment + 750);
    EXPECT_EQ(state.agentQuestions[0].answer, "Yes");
    EXPECT_EQ(state.agentQuestions[0].answeredAt, moment + 780);
}

TEST(WholeBlock, putsTheNewestBlockFirstInTheHistory)
{
    Person person;
    const QuillmereState before = finishedState(person);
    const QuillmereState after = finishedState(person);
    ASSERT_EQ(after.blockHistory.size(), 2u);
    EXPECT_EQ(after.blockHistory[1], before.blockHistory[0]);
    EXPECT_GT(*after.blockHistory[0].completedAt, *after.blockHistory[1].completedAt);
}

}  // namespace
}  // namespace quillmere::test
