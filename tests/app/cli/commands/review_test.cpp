// The review of a focus session, and the reflection on a block.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr std::pair<const char*, CompletionResult> completions[] = {
    {"yes", CompletionResult::yes},   {"Yes", CompletionResult::yes}, {"HALF", CompletionResult::half},
    {"Half", CompletionResult::half}, {"no", CompletionResult::no},   {"y", CompletionResult::yes},
    {"H", CompletionResult::half},    {"N", CompletionResult::no},
};

TEST(Review, takesItsCompletionInAnyCase)
{
    for (const auto& [word, completion] : completions) {
        SCOPED_TRACE(word);
        const Person person;
        person.has(stateIn(WorkflowState::sessionReview));
        EXPECT_EQ(person
                      .types({"review", "--completion", word, "--next-outcome", "More", "--next-energy", "4",
                              "--next-morale", "3"})
                      .code,
                  ExitCode::done);
        EXPECT_EQ(person.state().currentSession()->review->completion, completion);
    }
}

TEST(Review, refusesAnyOtherCompletion)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const auto before = pictureOf(person.directory());
    for (const Words& words :
         {Words{"review", "--next-outcome", "More", "--next-energy", "4", "--next-morale", "3"},
          Words{"review", "--completion", "maybe", "--next-outcome", "More", "--next-energy", "4",
                "--next-morale", "3"},
          Words{"review", "--completion", "", "--next-outcome", "More", "--next-energy", "4", "--next-morale",
                "3"}}) {
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err, "--completion: Say whether it was completed: yes, half or no.\n");
    }
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Review, needsTheNextPlanWhileCyclesRemain)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types({"review", "--completion", "yes"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err,
              "Save the next session plan before the break starts. Give --next-outcome TEXT, or --finish, "
              "which ends "
              "the block.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Review, inventsNoRatingForTheNextPlan)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const auto before = pictureOf(person.directory());
    const Ending ending =
        person.types({"review", "--completion", "yes", "--next-outcome", "More", "--next-energy", "2"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "The session needs your own rating: say --next-morale, 1 to 5.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Review, startsTheBreak)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const Ending ending = person.types({"review", "--completion", "yes", "--next-outcome", "More",
                                        "--next-energy", "4", "--next-morale", "3"});
    EXPECT_TRUE(
        ending.out.starts_with("The review is saved.\n\n"
                               "Break  Break\n"
                               "05:00  [........................]  until "))
        << ending.out;
    EXPECT_EQ(person.state().breakStartedAt, moment);
}

TEST(Review, ofTheLastSessionNeedsNoPlan)
{
    const Person person;
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.workflowState = WorkflowState::sessionReview;
    person.has(state);
    EXPECT_EQ(person.types({"review", "--completion", "no"}).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
    EXPECT_TRUE(filesAgree(person));
}

Person personWithOneSession()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.currentBlock->cycleCount = 1;
    person.has(state);
    return person;
}

TEST(ReviewOfAnOnlySession, takesTheReflectionAndFinishesTheBlock)
{
    const Person person = personWithOneSession();
    const Ending ending = person.types({"review", "--completion", "half", "--result", "Four stand",
                                        "--lessons", "Close the door", "--output", "An outline"});
    EXPECT_TRUE(ending.out.starts_with("The review is saved. The block is finished.\n\nIdle  "))
        << ending.err;
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    ASSERT_EQ(state.blockHistory.size(), 1u);
    EXPECT_EQ(state.blockHistory[0].sessions[0].review->noteworthyResult, "Four stand");
    EXPECT_EQ(state.blockHistory[0].completedAt, moment);
    EXPECT_EQ(state.blockHistory[0].reflection, (BlockReview{.outputProduced = "An outline",
                                                             .normalComparison = "",
                                                             .boggedDown = "",
                                                             .wentWell = "",
                                                             .lessons = "Close the door"}));
    EXPECT_TRUE(filesAgree(person));
}

TEST(ReviewOfAnOnlySession, finishesTheBlockWithoutAReflectionToo)
{
    for (const Words& words :
         {Words{"review", "--completion", "yes"}, Words{"review", "--completion", "yes", "--finish"}}) {
        const Person person = personWithOneSession();
        EXPECT_EQ(person.types(words).code, ExitCode::done);
        EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
        EXPECT_EQ(person.state().blockHistory.size(), 1u);
    }
}

TEST(ReviewOfAnOnlySession, isUndoneInOneStep)
{
    const Person person = personWithOneSession();
    const QuillmereState before = person.state();
    person.types({"review", "--completion", "yes", "--lessons", "Close the door"});
    const Ending undone = person.types({"undo", "--yes"});
    EXPECT_EQ(undone.code, ExitCode::done);
    EXPECT_TRUE(undone.out.starts_with("Undone: review of session 1 saved; block finished: Chapter one ("))
        << undone.out;
    EXPECT_EQ(person.state().currentBlock, before.currentBlock);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_TRUE(person.state().blockHistory.empty());
}

TEST(ReviewOfAnOnlySession, needsItsCompletion)
{
    const Person person = personWithOneSession();
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"review", "--lessons", "Close the door"}).err,
              "--completion: Say whether it was completed: yes, half or no.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Review, refusesTheReflectionOfABlockWithOtherSessions)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types(
        {"review", "--completion", "yes", "--next-outcome", "More", "--lessons", "Close the door"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(
        ending.err,
        "Only the review of a block with one session takes the reflection too; here say it to quillmere "
        "reflect, once the block waits for it.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Review, takesANextPlanForOneOfTheOutcomesOnly)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"review", "--completion", "no", "--next-towards", "3"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"review", "--completion", "no", "--next-morale", "6"}).code, ExitCode::refused);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(Reflect, keepsTextsThatWereNotGivenEmpty)
{
    const Person person;
    person.has(stateIn(WorkflowState::blockReview));
    EXPECT_EQ(person.types({"reflect", "--lessons", "Close the door"}).code, ExitCode::done);
    const QuillmereState state = person.state();
    ASSERT_EQ(state.blockHistory.size(), 1u);
    EXPECT_EQ(state.blockHistory[0].reflection, (BlockReview{.outputProduced = "",
                                                             .normalComparison = "",
                                                             .boggedDown = "",
                                                             .wentWell = "",
                                                             .lessons = "Close the door"}));
    EXPECT_TRUE(filesAgree(person));
}

}  // namespace
}  // namespace quillmere::test
