#include "work/forms/forms.hpp"

#include "work/forms/record_forms.hpp"
#include "work/only_session.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_error.hpp>

#include <utility>

namespace quillmere::work {
namespace {

/// The fields of a form to which the configuration makes no difference.
template <void (*addFields)(Form&, const QuillmereState&, Instant)>
void addAlike(Form& form, const QuillmereState& state, Instant now, const config::Values&)
{
    addFields(form, state, now);
}

struct FormRow {
    FormKind value;
    void (*addFields)(Form&, const QuillmereState&, Instant, const config::Values&);
    void (*save)(const Form&, QuillmereState&, Instant);
    std::string (*times)(const Form&, const QuillmereState&, const base::SeenFrom&) = nullptr;
};

constexpr auto formRows = std::to_array<FormRow>({
    {FormKind::block, addBlockFields, saveBlock, blockTimes},
    {FormKind::plan, addAlike<addPlanFields>, savePlan},
    {FormKind::review, addAlike<addReviewFields>, saveReview},
    {FormKind::reflection, addAlike<addReflectionFields>, saveReflection},
    {FormKind::answer, addAlike<addAnswerFields>, saveAnswer},
    {FormKind::question, addAlike<addQuestionFields>, saveQuestion},
    {FormKind::length, addAlike<addLengthFields>, saveLength},
    {FormKind::goOn, addAlike<addGoOnFields>, saveGoOn},
    {FormKind::earlierEnd, addAlike<addEarlierEndFields>, saveEarlierEnd, earlierEndTimes},
    {FormKind::away, addAlike<addAwayFields>, saveAway, awayTimes},
    {FormKind::blockChange, addAlike<addBlockChangeFields>, saveBlockChange},
    {FormKind::correction, addAlike<addCorrectionFields>, saveCorrection, correctionTimes},
    {FormKind::anotherStart, addAlike<addAnotherStartFields>, saveAnotherStart, anotherStartTimes},
    {FormKind::blockCorrection, addAlike<addBlockCorrectionFields>, saveBlockCorrection},
});
static_assert(inCaseOrder(formRows) && formRows.size() == EnumerationTable<FormKind>::rows.size());

/// The move of a form that a person opens.
Move moveOf(FormKind kind, const QuillmereState& state)
{
    using amendments::Kind;
    switch (kind) {
        case FormKind::goOn: return Kind::goOn;
        case FormKind::earlierEnd: return Kind::forgotToEnd;
        case FormKind::away: return Kind::wasAway;
        case FormKind::blockChange: return Kind::change;
        case FormKind::correction:
        case FormKind::blockCorrection: return Kind::correct;
        case FormKind::anotherStart: return Kind::backOut;
        default: break;
    }
    return state.workflowState == WorkflowState::breaking ? Move(Step::extendBreak)
                                                          : Move(Kind::changeLength);
}

}  // namespace

Field fieldOf(const Prompt& prompt, const std::string& prefix, FieldValue value)
{
    return {.id = prefix + std::string(prompt.name),
            .question = std::string(prompt.question),
            .kind = prompt.kind,
            .value = std::move(value),
            .hint = std::string(prompt.hint)};
}

std::optional<FormSubject> subjectFor(const QuillmereState& state)
{
    const std::optional<Block>& block = state.currentBlock;
    const std::string blockName = block ? block->id.text() : newBlock(state).name;
    switch (state.workflowState) {
        case WorkflowState::blockPlanning: return FormSubject{FormKind::block, blockName};
        case WorkflowState::sessionPlanning: {
            const std::size_t number = block ? block->sessions.size() + 1 : 1;
            return FormSubject{FormKind::plan, blockName + "-" + std::to_string(number)};
        }
        case WorkflowState::sessionReview: {
            const WorkSession* const session = state.currentSession();
            return FormSubject{FormKind::review, session ? session->id.text() : blockName};
        }
        case WorkflowState::blockReview: return FormSubject{FormKind::reflection, blockName};
        case WorkflowState::idle:
        case WorkflowState::focusing:
        case WorkflowState::breaking:
        case WorkflowState::complete: break;
    }
    return std::nullopt;
}

FormSubject newBlock(const QuillmereState& state)
{
    const std::string before = state.blockHistory.empty() ? "none" : state.blockHistory.front().id.text();
    return {FormKind::block, "after-" + before};
}

FormSubject answerTo(const AgentQuestion& question) { return {FormKind::answer, question.id.text()}; }

FormSubject correctionOf(const WorkSession& session) { return {FormKind::correction, session.id.text()}; }

FormSubject correctionOf(const Block& block) { return {FormKind::blockCorrection, block.id.text()}; }

FormSubject newQuestion() { return {FormKind::question, "new"}; }

std::vector<FormSubject> subjectsOf(const QuillmereState& state)
{
    std::vector<FormSubject> subjects = {newQuestion()};
    if (const std::optional<FormSubject> subject = subjectFor(state)) {
        subjects.push_back(*subject);
    }
    if (state.currentBlock) {
        subjects.push_back({FormKind::block, state.currentBlock->id.text()});
    }
    for (const AgentQuestion& question : state.openQuestions()) {
        subjects.push_back(answerTo(question));
    }
    return subjects;
}

Form formFor(const FormSubject& subject, const QuillmereState& state, Instant now,
             const config::Values& values)
{
    Form form(subject, values.hours);
    rowOf(formRows, subject.kind).addFields(form, state, now, values);
    return form;
}

FormSubject subjectOf(FormKind kind, const QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    const bool isOfBlock = kind == FormKind::blockChange || !session;
    return {kind, isOfBlock ? state.currentBlock ? state.currentBlock->id.text() : newBlock(state).name
                            : session->id.text()};
}

bool isCurrent(const FormSubject& subject, const QuillmereState& state)
{
    switch (subject.kind) {
        case FormKind::block:
        case FormKind::plan:
        case FormKind::review:
        case FormKind::reflection: return subjectFor(state) == subject;
        case FormKind::answer:
        case FormKind::question: return true;
        case FormKind::correction:
        case FormKind::blockCorrection: return hasRecordToCorrect(subject, state);
        default: break;
    }
    return subjectOf(subject.kind, state) == subject && isPossible(moveOf(subject.kind, state), state);
}

Move moveOf(const Form& form, const QuillmereState& state)
{
    switch (form.subject().kind) {
        case FormKind::block: return hasPlannedStart(form) ? Step::scheduleBlock : Step::startBlock;
        case FormKind::plan: return Step::startFocus;
        case FormKind::review:
            if (isOnlySessionInReview(state)) {
                return Step::completeBlockReview;
            }
            return finishesBlock(form)                       ? Move(amendments::Kind::finishWithReview)
                   : isPossible(Step::saveLastReview, state) ? Move(Step::saveLastReview)
                                                             : Move(Step::saveReviewAndStartBreak);
        case FormKind::reflection: return Step::completeBlockReview;
        case FormKind::answer: return Step::answerQuestion;
        case FormKind::question: return Step::addQuestion;
        default: break;
    }
    return moveOf(form.subject().kind, state);
}

std::string timesInFull(const Form& form, const QuillmereState& state, const base::SeenFrom& here)
{
    const FormRow& row = rowOf(formRows, form.subject().kind);
    return row.times ? row.times(form, state, here) : "";
}

void carryOut(const Form& form, QuillmereState& state, Instant now)
{
    if (!isCurrent(form.subject(), state)) {
        throw WorkflowError(WorkflowError::invalidTransition);
    }
    rowOf(formRows, form.subject().kind).save(form, state, now);
}

}  // namespace quillmere::work
