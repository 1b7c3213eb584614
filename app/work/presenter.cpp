#include "work/presenter.hpp"

#include "amendments/delete_block.hpp"
#include "base/text/failure.hpp"
#include "work/amendment_text.hpp"
#include "work/changed_elsewhere.hpp"
#include "work/deletion.hpp"
#include "work/event_text.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/block_draft.hpp"
#include "work/naming.hpp"
#include "workspace/leader_lock.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/transition.hpp>

#include <algorithm>
#include <new>
#include <system_error>

namespace quillmere::work {
namespace {

std::string routeMessage(WidgetRoute route, WidgetRoute actual)
{
    return "The screen " + std::string(rawValue(route)) + " is not open now; the work is at " +
           std::string(rawValue(actual)) + ".";
}

/// Whether the form is an answer to a question that waits no more.
bool isAnswered(const FormSubject& subject, const QuillmereState& state)
{
    const std::vector<AgentQuestion> questions = state.openQuestions();
    return subject.kind == FormKind::answer &&
           std::none_of(questions.begin(), questions.end(),
                        [&](const AgentQuestion& question) { return subject == answerTo(question); });
}

/// What is said once the form is saved. Throws Unacceptable.
std::string savedText(const Form& form, const QuillmereState& state, const base::SeenFrom& here)
{
    const std::string times = timesInFull(form, state, here);
    return times.empty() ? std::string(savingFor(moveOf(form, state)).done) : times;
}

}  // namespace

Presenter::Presenter(workspace::Workspace workspace, Drafts drafts, std::optional<WidgetRoute> route,
                     const config::Configuration& configuration)
    : files_(std::move(workspace), base::Reach::prompts),
      drafts_(std::move(drafts)),
      values_(configuration.values)
{
    refresh();
    warnOf(configuration.problems);
    if (route && isUsable()) {
        const auto actual = fromWorkflowState<WidgetRoute>(state().workflowState);
        if (*route != actual) {
            say(routeMessage(*route, actual));
        }
    }
}

bool Presenter::countsSeconds() const
{
    if (!isUsable() || files_.isBehind() || !files_.watchTrouble().empty()) {
        return true;  // not everything that makes a file usable again can be watched
    }
    const auto timer = TimerSnapshot::derive(state(), situation().now);
    const bool isScheduled = state().workflowState == WorkflowState::idle && state().currentBlock;
    return isScheduled || (timer && !timer->isPaused);
}

void Presenter::refresh()
{
    keepDraft();
    const bool wasUsable = isUsable();
    const std::vector<workspace::Event> recorded = files_.refresh();
    if (!isUsable()) {
        return;
    }
    if (!wasUsable) {
        message_.clear();  // the trouble that it was about is over
    }
    if (!std::exchange(areOldDraftsRemoved_, true)) {
        drafts_.removeOld(subjectsOf(state()));
    }
    const bool isFirst = !lastShown_;
    tellOfChanges(recorded);
    noteQuestions(isFirst);
    if (!recorded.empty()) {
        warn();
    }
    followState();
    warnOfNoWatch();
}

void Presenter::setReach(base::Reach reach)
{
    if (reach != files_.reach()) {
        files_.setReach(reach);
        refresh();
    }
}

void Presenter::tellOfChanges(const std::vector<workspace::Event>& recorded)
{
    const std::optional<LastShown> before =
        lastShown_ ? std::optional(LastShown::of(*lastShown_)) : std::nullopt;
    const bool hasMoved = before != LastShown::of(state());
    // An event that was shown before it could be recorded is not told again.
    if (hasMoved) {
        const std::vector<workspace::Event> events =
            recorded.empty() && before ? newsSince(*before, state()) : recorded;
        if (before && events.empty()) {
            message_ = changedElsewhere(*lastShown_, state(), {situation().now, values_.hours});
        }
        tell(events);
    }
    // A copy takes its time, and this is called each second.
    if (hasMoved || lastShown_->updatedAt != state().updatedAt) {
        noteShown();
    }
}

void Presenter::noteShown()
{
    lastShown_ = state();
    base::keepWithin(base::Reach::prompts, *lastShown_, situation().now);
}

void Presenter::tell(const std::vector<workspace::Event>& events)
{
    for (const workspace::Event& event : events) {
        bell_ = true;
        message_ = eventText(event, {situation().now, values_.hours});
    }
}

void Presenter::noteQuestions(bool isFirst)
{
    const std::size_t before = std::exchange(questionCount_, state().openQuestions().size());
    bell_ = bell_ || (!isFirst && questionCount_ > before && state().interruptible());
}

void Presenter::warn()
{
    if (const std::string& warning = situation().warning; !warning.empty()) {
        say(warning);
    }
}

void Presenter::warnOfNoWatch()
{
    if (const std::string& trouble = files_.watchTrouble();
        !trouble.empty() && !std::exchange(isToldOfNoWatch_, true)) {
        say(trouble);
    }
}

bool Presenter::noteSleep(const base::Sleep& sleep)
{
    slept_ = isUsable() ? sleptThrough(sleep, state()) : std::nullopt;
    if (slept_) {
        say(sleepText(*slept_, {situation().now, values_.hours}));
    }
    return slept_.has_value();
}

std::string Presenter::takeSilenceWarning()
{
    if (!isUsable() || state().workflowState != WorkflowState::focusing || isToldOfSilence_ ||
        workspace::hasLeader(workspace::noticesDirectory(files_.workspace().stateDirectory()))) {
        return "";
    }
    isToldOfSilence_ = true;
    return "No watch is running: nothing rings when the session ends (quillmere watch).";
}

void Presenter::warnOf(const std::vector<config::Problem>& problems)
{
    if (!problems.empty()) {
        say(config::problemText(problems.front()));
    }
    if (problems.size() > 1) {
        say("quillmere config says what else is wrong there.");
    }
}

void Presenter::say(std::string_view sentence)
{
    if (sentence.empty()) {
        return;
    }
    message_ += (message_.empty() ? "" : " ") + std::string(sentence);
}

void Presenter::followState()
{
    const std::optional<FormSubject> subject = subjectFor(state());
    if (workForm_ && subject != workForm_->subject()) {
        closeForm(workForm_);
    }
    if (subject && !workForm_) {
        open(workForm_, *subject);
    }
    if (openedForm_ && isAnswered(openedForm_->subject(), state())) {
        say("Another program has answered this question.");
        closeForm(openedForm_);
    } else if (openedForm_ && !isCurrent(openedForm_->subject(), state())) {
        say("The form is closed, because it does not fit any more.");
        closeForm(openedForm_);
    }
    if (toConfirm_ && !isPossible(toConfirm_->move, state())) {
        toConfirm_ = nullptr;
    }
    if (blockToDelete_ && !finishedBlockWith(*blockToDelete_, state())) {
        blockToDelete_.reset();
    }
}

void Presenter::open(std::shared_ptr<Form>& place, const FormSubject& subject)
{
    place = std::make_shared<Form>(formFor(subject, state(), situation().now, values_));
    switch (drafts_.fillIn(*place)) {
        case BroughtBack::nothing: break;
        case BroughtBack::all: say("What you had written is back."); break;
        case BroughtBack::overChanges:
            say("What you had written is back. It replaces what another program has written since.");
            break;
    }
    if (!drafts_.areKept() && !std::exchange(isToldOfNoDrafts_, true)) {
        say("Drafts are not kept: neither XDG_STATE_HOME nor HOME names a directory for them.");
    }
}

void Presenter::closeForm(std::shared_ptr<Form>& form)
{
    if (form->isTouched()) {
        say(drafts_.areKept() ? "What you wrote is kept." : "What you wrote could not be kept.");
        closedForms_.push_back(form->subject());
    }
    form.reset();
}

void Presenter::openAnswer(const AgentQuestion& question) { open(openedForm_, answerTo(question)); }

void Presenter::closeOpenedForm()
{
    keepDraft();
    openedForm_.reset();
}

void Presenter::noteChange(const std::shared_ptr<Form>& form)
{
    if (changedForm_ != form) {
        keepDraft();
    }
    changedForm_ = form;
}

void Presenter::keepDraft()
{
    const std::shared_ptr<Form> form = std::exchange(changedForm_, nullptr);
    if (!form) {
        return;
    }
    try {
        drafts_.keep(*form);
    } catch (const std::system_error& error) {
        say("The draft cannot be kept: " + base::failureText(error));
    }
}

std::optional<std::string> Presenter::save(std::shared_ptr<Form> form)
{
    keepDraft();
    try {
        const auto saveForm = [&](QuillmereState& fresh, Instant now) { carryOut(*form, fresh, now); };
        if (!change(saveForm, savedText(*form, state(), {situation().now, values_.hours}))) {
            return std::nullopt;
        }
    } catch (const Unacceptable& refusal) {
        say(refusal.what());
        return refusal.field();
    }
    try {
        drafts_.forget(form->subject());
    } catch (const std::system_error& error) {
        say("The draft cannot be removed: " + base::failureText(error));
    }
    return std::nullopt;
}

std::vector<Model> Presenter::models() const
{
    const bool isPlanned = isUsable() && workForm_ && workForm_->subject().kind == FormKind::block;
    return isPlanned ? modelsFor(state(), values_, {situation().now, values_.hours}) : std::vector<Model>();
}

void Presenter::planLike(const Model& model)
{
    workForm_ = std::make_shared<Form>(filledLike(model.block, *workForm_));
    noteChange(workForm_);
    keepDraft();
}

void Presenter::request(const Action& action)
{
    if (mustAsk(action)) {
        toConfirm_ = &action;
    } else {
        perform(action);
    }
}

bool Presenter::mustAsk(const Action& action) const
{
    return action.asks == Asks::always ||
           (action.asks == Asks::ifTyped && workForm_ && workForm_->isTouched());
}

void Presenter::perform(const Action& action)
{
    if (const auto* const form = std::get_if<FormKind>(&action.effect)) {
        open(openedForm_, subjectOf(*form, state()));
        if (slept_ && stands(*slept_, state())) {
            fillIn(*openedForm_, slept_->sleep, situation().now);
        }
    } else {
        change(keepingWords(std::get<Action::Operation>(action.effect), drafts_, values_), action.done);
    }
}

void Presenter::request(UndoDirection direction)
{
    try {
        const workspace::Workspace& workspace = files_.workspace();
        const QuillmereState present = workspace.look(base::Reach::years).state;
        stepToConfirm_ = nextStep(direction, workspace, present, {situation().now, values_.hours});
        if (!stepToConfirm_) {
            say(noStepText(direction));
        }
    } catch (const std::system_error& error) {
        say(base::failureText(error));
    }
}

void Presenter::requestDeletion(const Identifier& finishedBlock)
{
    if (finishedBlockWith(finishedBlock, state())) {
        blockToDelete_ = finishedBlock;
    }
}

std::string Presenter::question() const
{
    if (blockToDelete_) {
        return deletionQuestion(*finishedBlockWith(*blockToDelete_, state()), values_.hours);
    }
    if (stepToConfirm_) {
        return offerText(*stepToConfirm_);
    }
    return toConfirm_ ? std::string(toConfirm_->question) : "";
}

void Presenter::confirm(bool isAgreed)
{
    const Action* const action = std::exchange(toConfirm_, nullptr);
    const std::optional<UndoStep> step = std::exchange(stepToConfirm_, std::nullopt);
    const std::optional<Identifier> block = std::exchange(blockToDelete_, std::nullopt);
    if (block && isAgreed) {
        deleteBlock(*block);
    } else if (action && isAgreed) {
        perform(*action);
    } else if (step && isAgreed) {
        perform(*step);
    }
}

void Presenter::deleteBlock(const Identifier& id)
{
    const std::string done = deletedText(*finishedBlockWith(id, state()), state());
    change([&](QuillmereState& fresh, Instant now) { amendments::deleteBlock(fresh, id, now); }, done);
}

void Presenter::perform(const UndoStep& step)
{
    const UndoChange undo = changeBy(step, files_.workspace());
    if (change(undo.operation, doneText(step), undo.manner)) {
        for (const workspace::Event& event : undo.step->events) {
            bell_ = true;
            say(eventText(event, {situation().now, values_.hours}));
        }
    }
}

bool Presenter::change(const workspace::Operation& operation, std::string_view done)
{
    return change(operation, done, {.reach = files_.reach()});
}

bool Presenter::change(const workspace::Operation& operation, std::string_view done,
                       const workspace::ChangeManner& manner)
{
    const bool wasFocusing = isUsable() && state().workflowState == WorkflowState::focusing;
    std::vector<workspace::Event> events;
    std::string outcome(done);
    try {
        events = files_.change(operation, manner);
    } catch (const Unacceptable&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const amendments::Refusal& refusal) {
        refresh();
        say(refusalText(refusal, situation(), values_.hours));
        return false;
    } catch (const workspace::ChangeSaved& error) {
        events = files_.refresh();
        outcome = error.what();
    } catch (const std::exception& error) {
        const std::string reason = base::failureText(error);
        // The state may have changed, or the files may be unusable.
        refresh();
        say(reason);
        return false;
    }
    noteShown();
    questionCount_ = state().openQuestions().size();
    tell(events);
    say(outcome);
    warn();
    if (!wasFocusing) {
        say(takeSilenceWarning());
    }
    openedForm_.reset();
    if (workForm_ && subjectFor(state()) != workForm_->subject()) {
        workForm_.reset();
    }
    followState();
    return true;
}

}  // namespace quillmere::work
