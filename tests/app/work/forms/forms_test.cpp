#include "work/forms/forms.hpp"

#include "program_testing.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/form_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <tuple>

namespace quillmere::test {
namespace {

using namespace work;

TEST(Forms, belongToTheWorkflowStatesThatNeedInput)
{
    const std::optional<FormKind> kinds[] = {std::nullopt,         FormKind::block,  FormKind::plan,
                                             std::nullopt,         FormKind::review, std::nullopt,
                                             FormKind::reflection, std::nullopt};
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        const auto subject = subjectFor(stateIn(workflowState));
        EXPECT_EQ(subject ? std::optional(subject->kind) : std::nullopt,
                  kinds[static_cast<std::size_t>(workflowState)]);
    }
}

TEST(Forms, belongToTheirBlockAndSession)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    const auto first = subjectFor(state);
    const WorkflowEngine engine;
    engine.startFocus(state, samplePlan(1), moment);
    engine.endFocus(state, moment);
    engine.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), moment);
    engine.endBreak(state, moment);
    EXPECT_NE(subjectFor(state), first);
}

TEST(Forms, readTheTimesOfASleepThatTheyShow)
{
    const TimeZone utc("UTC");
    const QuillmereState state = stateIn(WorkflowState::focusing);
    const Instant midnight = moment + 9 * 3600;
    const Instant now = midnight + 600;
    const base::Sleep sleep{.from = midnight - 30, .to = midnight + 30};
    for (const auto& [hours, from, to] :
         {std::tuple{base::Hours::twelve, "2026-11-15 11:59:30 pm", "12:00:30 am"},
          std::tuple{base::Hours::twentyFour, "2026-11-15 23:59:30", "00:00:30"}}) {
        config::Values values;
        values.hours = hours;
        Form form = formFor(subjectOf(FormKind::away, state), state, now, values);
        work::fillIn(form, sleep, now);
        EXPECT_EQ(form.text("from"), from);
        EXPECT_EQ(form.text("to"), to);
        EXPECT_EQ(pastTimeFrom({"from", form.text("from")}, now), sleep.from);
        EXPECT_EQ(pastTimeFrom({"to", form.text("to")}, now), sleep.to);
    }
}

TEST(Forms, areRefusedAfterTheWorkHasMovedOn)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    Form review = formOf(state);
    fill(review, "completion", "Yes");
    state.currentBlock->sessions.back().id = identifier(77);
    EXPECT_THROW(carryOut(review, state, moment), WorkflowError);
}

TEST(PlanForm, startsAFocusSessionWithItsValues)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    Form form = formOf(state);
    fill(form, "outcome", "Headings");
    fill(form, "hazards", "Phone\nDoor");
    fill(form, "towards", state.currentBlock->outcomes[1].id.text());
    fill(form, "energy", "5");
    carryOut(form, state, moment);
    const SessionPlan& plan = state.currentSession()->plan;
    EXPECT_EQ(plan.intendedOutcome, "Headings");
    EXPECT_EQ(plan.hazardsMitigation, "Phone\nDoor");
    EXPECT_EQ(plan.blockOutcomeID, state.currentBlock->outcomes[1].id);
    EXPECT_EQ(plan.energy, 5);
    EXPECT_EQ(plan.morale, 3);
}

TEST(PlanForm, startsFromThePlanThatWasSaved)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = samplePlan(2);
    carryOut(formOf(state), state, moment);
    EXPECT_EQ(state.currentSession()->plan, samplePlan(2));
}

TEST(PlanForm, leavesARatingOutOfRangeToTheEngine)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = samplePlan(2);
    state.plannedNextSession->energy = 9;
    EXPECT_THROW(carryOut(formOf(state), state, moment), WorkflowError);
    Form form = formOf(state);
    fill(form, "energy", "4");
    carryOut(form, state, moment);
    EXPECT_EQ(state.currentSession()->plan.energy, 4);
}

TEST(ReviewForm, savesTheReviewAndTheNextPlan)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    Form form = formOf(state);
    EXPECT_EQ(moveOf(form, state), Move(Step::saveReviewAndStartBreak));
    fill(form, "completion", "Half");
    fill(form, "result", "Four stand");
    fill(form, "next-outcome", "The fifth");
    fill(form, "next-morale", "1");
    carryOut(form, state, moment);
    EXPECT_EQ(state.workflowState, WorkflowState::breaking);
    EXPECT_EQ(state.currentSession()->review->completion, CompletionResult::half);
    EXPECT_EQ(state.currentSession()->review->noteworthyResult, "Four stand");
    EXPECT_EQ(state.plannedNextSession->intendedOutcome, "The fifth");
    EXPECT_EQ(state.plannedNextSession->morale, 1);
}

TEST(ReviewForm, asksForNoPlanAfterTheLastSession)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.workflowState = WorkflowState::sessionReview;
    Form form = formOf(state);
    EXPECT_FALSE(form.has("next-outcome"));
    EXPECT_EQ(moveOf(form, state), Move(Step::saveLastReview));
    EXPECT_THROW(carryOut(form, state, moment), Unacceptable);
    fill(form, "completion", "Yes");
    carryOut(form, state, moment);
    EXPECT_EQ(state.workflowState, WorkflowState::blockReview);
}

TEST(ReviewForm, ofAnOnlySessionHasTheReflectionAndFinishesTheBlock)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.currentBlock->cycleCount = 1;
    Form form = formOf(state);
    EXPECT_EQ(form.field("output").heading, "The block");
    EXPECT_EQ(moveOf(form, state), Move(Step::completeBlockReview));
    fill(form, "lessons", "Close the door");
    EXPECT_THROW(carryOut(form, state, moment), Unacceptable);
    fill(form, "completion", "Half");
    carryOut(form, state, moment);
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_EQ(state.blockHistory.front().sessions[0].review->completion, CompletionResult::half);
    EXPECT_EQ(state.blockHistory.front().reflection->lessons, "Close the door");
}

TEST(ReflectionForm, finishesTheBlock)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    Form form = formOf(state);
    fill(form, "lessons", "Close\nthe door");
    carryOut(form, state, moment);
    EXPECT_EQ(state.blockHistory.front().reflection->lessons, "Close\nthe door");
}

struct TimesInAForm {
    FormKind kind;
    WorkflowState workflowState;
    const char* field;
    const char* text;
    const char* inFull;
};

// At 15:00 on Sunday, 15 November 2026.
constexpr TimesInAForm timesInForms[] = {
    {FormKind::earlierEnd, WorkflowState::focusing, "at", "2:30pm",
     "The focus session ended on Sun 15 Nov 2026, 14:30."},
    {FormKind::away, WorkflowState::focusing, "from", "14:30",
     "A pause from Sun 15 Nov 2026, 14:30 to Sun 15 Nov 2026, 15:00."},
    {FormKind::correction, WorkflowState::breaking, "ended-at", "", ""},
    {FormKind::length, WorkflowState::focusing, "by", "5m", ""},
    {FormKind::anotherStart, WorkflowState::blockPlanning, "at", "mon 9am",
     "Scheduled for Mon 16 Nov 2026, 09:00."},
};

TEST(Forms, sayInFullHowTheirTimesAreUnderstood)
{
    const TimeZone here("UTC");
    for (const TimesInAForm& times : timesInForms) {
        const QuillmereState state = stateIn(times.workflowState);
        Form form = formFor(subjectOf(times.kind, state), state, moment);
        fill(form, times.field, times.text);
        EXPECT_EQ(timesInFull(form, state, moment), times.inFull);
    }
    Form block = formOf(stateIn(WorkflowState::blockPlanning));
    EXPECT_EQ(timesInFull(block, stateIn(WorkflowState::blockPlanning), moment), "");
    fill(block, "at", "tomorrow 9:00");
    EXPECT_EQ(timesInFull(block, stateIn(WorkflowState::blockPlanning), moment),
              "Scheduled for Mon 16 Nov 2026, 09:00.");
    const QuillmereState breaking = stateIn(WorkflowState::breaking);
    Form correction = formFor(subjectOf(FormKind::correction, breaking), breaking, moment);
    fill(correction, "ended-at", "14:50");
    EXPECT_TRUE(timesInFull(correction, breaking, moment)
                    .starts_with("The record is corrected. The focus session ended on "));
}

/// Two finished blocks with the same content: a reviewed session, and a session that has not ended.
QuillmereState stateWithTwoFinishedBlocks()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    for (const unsigned number : {2U, 3U}) {
        Block block = blockInWork(number, 2);
        block.sessions[0].id = Identifier::random();
        block.sessions[1].id = Identifier::random();
        block.reflection = sampleReflection();
        block.completedAt = moment;
        state.blockHistory.push_back(block);
    }
    return state;
}

TEST(CorrectionForms, correctASessionOfAnyFinishedBlock)
{
    QuillmereState state = stateWithTwoFinishedBlocks();
    const Block other = state.blockHistory[0];
    const WorkSession before = state.blockHistory[1].sessions[0];
    Form form = formFor(correctionOf(before), state, moment);
    EXPECT_EQ(form.text("result"), "Result 1");
    fill(form, "result", "Another");
    carryOut(form, state, moment + 1);
    WorkSession expected = before;
    expected.review->noteworthyResult = "Another";
    EXPECT_EQ(state.blockHistory[1].sessions[0], expected);
    EXPECT_EQ(state.blockHistory[0], other);
}

TEST(CorrectionForms, fitNoSessionThatHasNotEnded)
{
    const QuillmereState state = stateWithTwoFinishedBlocks();
    EXPECT_TRUE(isCurrent(correctionOf(state.blockHistory[0].sessions[0]), state));
    EXPECT_FALSE(isCurrent(correctionOf(state.blockHistory[0].sessions[1]), state));
    EXPECT_FALSE(isCurrent(correctionOf(state.currentBlock->sessions[0]), state));
    const QuillmereState inReview = stateIn(WorkflowState::sessionReview);
    EXPECT_FALSE(isCurrent(correctionOf(inReview.currentBlock->sessions[0]), inReview));
}

TEST(CorrectionForms, correctTheReflectionAndTheTextsOfAFinishedBlock)
{
    QuillmereState state = stateWithTwoFinishedBlocks();
    Form form = formFor(correctionOf(state.blockHistory[1]), state, moment);
    EXPECT_EQ(form.text("lessons"), "Close the door");
    fill(form, "lessons", "Open it");
    fill(form, "why", "Another reason");
    carryOut(form, state, moment + 1);
    EXPECT_EQ(state.blockHistory[1].reflection->lessons, "Open it");
    EXPECT_EQ(state.blockHistory[1].reflection->wentWell, "The outline");
    EXPECT_EQ(state.blockHistory[1].whyValue, "Another reason");
    EXPECT_EQ(state.blockHistory[0].reflection, sampleReflection());
}

TEST(CorrectionForms, makeNoReflectionWhereNothingWasWritten)
{
    QuillmereState state = stateWithTwoFinishedBlocks();
    state.blockHistory[0].reflection.reset();
    Form form = formFor(correctionOf(state.blockHistory[0]), state, moment);
    fill(form, "why", "Another reason");
    carryOut(form, state, moment + 1);
    EXPECT_FALSE(state.blockHistory[0].reflection);
}

TEST(CorrectionForms, fitNoBlockThatIsNotFinished)
{
    const QuillmereState state = stateWithTwoFinishedBlocks();
    EXPECT_TRUE(isCurrent(correctionOf(state.blockHistory[0]), state));
    EXPECT_FALSE(isCurrent(correctionOf(*state.currentBlock), state));
}

TEST(QuestionForms, answerAndAsk)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    Form question = formFor(newQuestion(), state, moment);
    EXPECT_THROW(carryOut(question, state, moment), Unacceptable);
    fill(question, "question", "Why?");
    carryOut(question, state, moment);
    ASSERT_EQ(state.agentQuestions.size(), 1U);
    Form answer = formFor(answerTo(state.agentQuestions[0]), state, moment);
    fill(answer, "answer", "Because\nof it");
    carryOut(answer, state, moment);
    EXPECT_EQ(state.agentQuestions[0].answer, "Because\nof it");
}

}  // namespace
}  // namespace quillmere::test
