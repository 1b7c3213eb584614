// A block brought to its end before its last session.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Finish, leadsFromABreakToTheReviewOfTheBlock)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    const Ending ending = person.types({"finish"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("No session follows; the block waits for its reflection.\n\n"))
        << ending.out;
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::blockReview);
    EXPECT_EQ(state.currentBlock->cycleCount, 3);
    EXPECT_EQ(state.updatedAt, moment);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Finish, leavesWhatWasPlannedInTheHistory)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    person.types({"finish"});
    EXPECT_EQ(person.types({"reflect"}).code, ExitCode::done);
    EXPECT_NE(person.types({"history"}).out.find("1 of 3 sessions"), std::string::npos);
}

TEST(Finish, tellsProgramsWhatWasDone)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    const std::string json = person.types({"--json", "finish"}).out;
    EXPECT_EQ(jsonAt("/done", json), R"("No session follows; the block waits for its reflection.")");
    EXPECT_EQ(jsonAt("/status/workflow_state", json), R"("blockReview")");
}

TEST(Finish, saysElsewhereWhatIsPossible)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    expectRefusal(person, {"finish"},
                  "A block is finished between its sessions, or with the review of one: session 1 of 3 waits "
                  "for its review. Possible: review, review --finish, change, extend, end --at.");
    person.has(stateIn(WorkflowState::idle));
    expectRefusal(person, {"finish"},
                  "A block is finished between its sessions, or with the review of one: nothing is planned. "
                  "Possible: plan, now.");
}

TEST(ReviewThatFinishes, savesTheReviewAndNeedsNoNextPlan)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const Ending ending = person.types({"review", "--finish", "--completion", "half", "--result", "Enough"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with(
        "The review is saved. No session follows; the block waits for its reflection.\n\n"));
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::blockReview);
    EXPECT_EQ(state.currentSession()->review->completion, CompletionResult::half);
    EXPECT_EQ(state.currentSession()->review->noteworthyResult, "Enough");
    EXPECT_TRUE(filesAgree(person));
}

TEST(ReviewThatFinishes, asksForTheReviewAlone)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    person.isAsked = true;
    person.answers = "yes\nThree pages\nMail\nNothing\n";
    const Ending ending = person.types({"review", "--finish"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err.find("The next session."), std::string::npos);
    EXPECT_EQ(person.state().currentSession()->review->noteworthyResult, "Three pages");
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
}

TEST(ReviewThatFinishes, takesNoPlanOfANextSession)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    expectRefusal(person, {"review", "--finish", "--completion", "yes", "--next-outcome", "More"},
                  "With --finish no session follows: leave out the options of the next one.",
                  ExitCode::usage);
}

TEST(ReviewThatFinishes, needsItsCompletion)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    expectRefusal(person, {"review", "--finish"},
                  "--completion: Say whether it was completed: yes, half or no.", ExitCode::usage);
}

TEST(ReviewThatFinishes, saysElsewhereWhatIsPossible)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    expectRefusal(person, {"review", "--finish", "--completion", "yes"},
                  "No session waits for its review: the break runs until 15:05. Possible: break end, break "
                  "extend, finish, change.");
}

}  // namespace
}  // namespace quillmere::test
