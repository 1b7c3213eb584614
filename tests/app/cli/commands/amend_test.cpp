// Records of the past, corrected.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

/// Two finished blocks, 9F1C… and ABCD…, and a session of a third one in a break. The clock shows 16:40.
Person personWithAPast()
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.currentBlock->id = *Identifier::fromText("CCCC0000-0000-4000-8000-000000000000");
    state.currentBlock->sessions[0].startedAt = moment - 1500;
    for (const char* const id :
         {"9F1C0000-0000-4000-8000-000000000000", "ABCD0000-0000-4000-8000-000000000000"}) {
        Block block = blockInWork(1, 3);
        block.id = *Identifier::fromText(id);
        block.sessions.back().endedAt = moment;
        block.sessions.back().startedAt = moment - 1500;
        block.reflection = sampleReflection();
        block.completedAt = moment;
        state.blockHistory.push_back(block);
    }
    person.has(state);
    person.now = moment + 60;
    return person;
}

TEST(AmendOfABlock, correctsTextsOutcomesAndTheReflection)
{
    const Person person = personWithAPast();
    const Ending ending = person.types(
        {"amend", "9f1c", "--why", "Another reason", "--outcome", "2=Index", "--lessons", "Open the door"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The record is corrected.\n\n"));
    const Block block = person.state().blockHistory[0];
    EXPECT_EQ(block.whyValue, "Another reason");
    EXPECT_EQ(block.outcomes[1].title, "Index");
    EXPECT_EQ(block.reflection->lessons, "Open the door");
    EXPECT_EQ(block.reflection->wentWell, "The outline");
    EXPECT_EQ(person.state().updatedAt, moment + 60);
    EXPECT_TRUE(filesAgree(person));
}

TEST(AmendOfASession, correctsPlanAndReview)
{
    const Person person = personWithAPast();
    EXPECT_EQ(person
                  .types({"amend", "ABCD.2", "--result", "Four", "--completion", "yes", "--plan-energy", "2",
                          "--plan-towards", "2", "--plan-outcome", "All of it"})
                  .code,
              ExitCode::done);
    const WorkSession session = person.state().blockHistory[1].sessions[1];
    SessionReview review = sampleReview(2);
    review.noteworthyResult = "Four";
    review.completion = CompletionResult::yes;
    EXPECT_EQ(session.review, review);
    SessionPlan plan = samplePlan(2);
    plan.energy = 2;
    plan.intendedOutcome = "All of it";
    plan.blockOutcomeID = person.state().blockHistory[1].outcomes[1].id;
    EXPECT_EQ(session.plan, plan);
}

TEST(AmendOfASession, reachesTheCurrentBlockByItsNumber)
{
    const Person person = personWithAPast();
    EXPECT_EQ(person.types({"amend", ".1", "--result", "Four"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->sessions[0].review->noteworthyResult, "Four");
}

TEST(AmendOfASession, movesItsEndToAnEarlierTimeOfThatDay)
{
    const TimeZone here("UTC");
    Person person = personWithAPast();
    person.now = moment + 60 + 3 * 86'400;
    EXPECT_TRUE(person.types({"amend", "9F1C.3", "--ended-at", "14:50"})
                    .out.starts_with(
                        "The record is corrected. The focus session ended on Sun 15 Nov 2026, 14:50.\n\n"));
    EXPECT_EQ(person.state().blockHistory[0].sessions[2].endedAt, moment - 600);
    expectRefusal(person, {"amend", "9F1C.3", "--ended-at", "14:30"},
                  "The end of a session can be corrected to an earlier time, not before its start plus its "
                  "pauses. Of finished pauses only the sum is known. Possible times: 2026-11-15 14:35:00 to "
                  "2026-11-15 14:50:00.");
}

TEST(AmendOfASession, needsACompletionWhereThereIsNoReview)
{
    const Person person = personWithAPast();
    expectRefusal(person, {"amend", "9F1C.3", "--result", "Four"},
                  "The session has no review yet: say --completion too.", ExitCode::usage);
    EXPECT_EQ(person.types({"amend", "9F1C.3", "--result", "Four", "--completion", "half"}).code,
              ExitCode::done);
    EXPECT_EQ(person.state().blockHistory[0].sessions[2].review->noteworthyResult, "Four");
}

struct WrongCorrection {
    Words words;
    const char* message;
    ExitCode code;
};

const WrongCorrection wrongCorrections[] = {
    {{"amend", "EEEE", "--why", "No"},
     "No block is called \"EEEE\"; see quillmere history.",
     ExitCode::usage},
    {{"amend", "9F1", "--why", "No"},
     "\"9F1\" is too short for the name of a block: give at least four characters, as quillmere history "
     "prints "
     "them.",
     ExitCode::usage},
    {{"amend", "9F1C.4", "--result", "No"},
     "The block has no session \"4\"; it has 3 sessions.",
     ExitCode::usage},
    {{"amend", "9F1C"},
     "Say what to correct, such as --result TEXT; quillmere amend --help lists the options.",
     ExitCode::usage},
    {{"amend", "9F1C.1", "--why", "No"},
     "9F1C.1 is a session; these options are of its block, 9F1C.",
     ExitCode::usage},
    {{"amend", "9F1C", "--result", "No"},
     "9F1C is a block; these options are of a session, such as 9F1C.1.",
     ExitCode::usage},
    {{"amend", "9F1C.1", "--plan-energy", "6"},
     "Energy and morale are ratings. Possible: 1 to 5 for each.",
     ExitCode::refused},
    {{"amend", "9F1C.1", "--plan-towards", "7"}, "The block has no outcome 7.", ExitCode::usage},
    {{"amend", "9F1C.1", "--completion", "maybe"},
     "--completion: Say whether it was completed: yes, half or no.",
     ExitCode::usage},
    {{"amend", "9F1C.1", "--ended-at", "noon"},
     "--ended-at: \"noon\" is no local time, such as 14:20, 2:20pm, 14:20:30, yesterday 17:00, mon 14:00 or "
     "2026-11-15 14:20.",
     ExitCode::usage},
    {{"amend", "CCCC", "--why", "No"},
     "This block is not finished: the break runs until 15:05. Possible: break end, break extend, finish, "
     "change.",
     ExitCode::refused},
};

TEST(Amend, refusesWhatNoRecordCanHave)
{
    const Person person = personWithAPast();
    for (const WrongCorrection& wrong : wrongCorrections) {
        expectRefusal(person, wrong.words, wrong.message, wrong.code);
    }
}

TEST(Amend, leavesASessionThatRunsOrWaitsForItsReview)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    expectRefusal(
        person, {"amend", ".1", "--plan-outcome", "All of it"},
        "This session has not ended, so that its record cannot be corrected. Possible: a session that "
        "has ended.");
    person.has(stateIn(WorkflowState::sessionReview));
    expectRefusal(
        person, {"amend", ".1", "--completion", "yes"},
        "This session waits for its review, so that there is none to correct. Possible: review, which "
        "saves it.");
}

TEST(Amend, asksForTheWholeNameWhereItIsAmbiguous)
{
    const Person person = personWithAPast();
    QuillmereState state = person.state();
    state.blockHistory[1].id = *Identifier::fromText("9F1C1000-0000-4000-8000-000000000000");
    person.has(state);
    expectRefusal(person, {"amend", "9F1C", "--why", "No"},
                  "Several blocks begin with \"9F1C\": 9F1C0, 9F1C1. Name one of them.", ExitCode::usage);
}

}  // namespace
}  // namespace quillmere::test
