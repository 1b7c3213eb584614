// State of a surface with forms while the work goes on: the open forms, the message, the action that waits
// for a confirmation. Knows neither keys nor drawing.
#pragma once

#include "config/configuration.hpp"
#include "work/actions.hpp"
#include "work/forms/drafts.hpp"
#include "work/forms/forms.hpp"
#include "work/models.hpp"
#include "work/recall/moment.hpp"
#include "work/slept_through.hpp"
#include "work/state_change.hpp"
#include "work/undo/undo_step.hpp"
#include "workspace/retrying_workspace.hpp"

#include <quillmere/widget/widget_route.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmere::work {

class Presenter {
public:
    /// Removes old drafts once the files can be used. Where the work is not at the `route`, says so, and also
    /// what is wrong with the configuration.
    Presenter(workspace::Workspace workspace, Drafts drafts, std::optional<WidgetRoute> route,
              const config::Configuration& configuration = {});

    /// For poll(2): readable when `refresh` is due.
    int descriptor() const { return files_.descriptor(); }
    /// Whether `refresh` is due every second: a visible value changes, or the files cannot be watched.
    bool countsSeconds() const;
    /// Reads the files and the clock, and follows what has changed.
    void refresh();

    /// How far back the situation goes: all years for a page that shows them, otherwise `prompts`.
    void setReach(base::Reach reach);

    /// Compresses an earlier version of the state after a save. To be called when the person does nothing.
    void compressVersion() { files_.compressVersion(); }

    /// Whether the files can be used; without that there is no situation that may be shown.
    bool isUsable() const { return files_.situation() && !files_.trouble(); }
    std::string trouble() const { return files_.trouble().value_or(""); }
    const workspace::Situation& situation() const { return *files_.situation(); }
    const QuillmereState& state() const { return situation().state; }

    /// What helps at this moment of the work.
    Recall recall() const { return recallAt(situation(), values_); }

    const config::Values& values() const { return values_; }
    /// How the person reads times.
    base::Hours hours() const { return values_.hours; }

    /// The message for the person; may be empty.
    const std::string& message() const { return message_; }
    void clearMessage() { message_.clear(); }
    /// Appends a sentence to the message.
    void say(std::string_view sentence);
    /// Whether the bell is to ring: an event happened since the last call, or a question of another program
    /// that may interrupt, and the person wants sound.
    bool takeBell() { return std::exchange(bell_, false) && values_.sound; }

    /// Notes that the computer slept: says so where it was in a focus session, and returns whether it was.
    /// The forms that correct the session then begin with the times of the sleep.
    bool noteSleep(const base::Sleep& sleep);

    /// Where a focus session runs and no watch does: the sentence that nothing will ring at its end. Empty
    /// otherwise, and after the first time.
    std::string takeSilenceWarning();

    /// The form that the workflow waits for; null: none. Another form is another object.
    const std::shared_ptr<Form>& workForm() const { return workForm_; }
    /// The form that the person has opened: of a question, an answer or an amendment; null: none.
    const std::shared_ptr<Form>& openedForm() const { return openedForm_; }
    void openQuestion() { open(openedForm_, newQuestion()); }
    void openAnswer(const AgentQuestion& question);
    /// Opens the form of a correction that is possible now.
    void openCorrection(const FormSubject& subject) { open(openedForm_, subject); }
    void closeOpenedForm();
    /// The subjects of the forms that the person was filling in when the work moved on elsewhere, since the
    /// last call. Typing that was meant for such a form must not reach what replaces it.
    std::vector<FormSubject> takeClosedForms() { return std::exchange(closedForms_, {}); }

    /// To be called after the person has changed a form; `keepDraft` then writes its draft.
    void noteChange(const std::shared_ptr<Form>& form);
    /// Writes the draft of the form that was changed, if any.
    void keepDraft();
    /// Saves a form; saving may close it. Returns the id of the field to correct when a value cannot be used.
    std::optional<std::string> save(std::shared_ptr<Form> form);

    /// What the block in planning can be filled in after; empty while the work does not wait for one.
    std::vector<Model> models() const;
    /// Fills in the form of the block in planning, except when it begins.
    void planLike(const Model& model);

    /// Takes an action, opens its form, or waits for its confirmation when it has a question.
    void request(const Action& action);
    /// The action that waits for a confirmation; null: none. It lapses when it is no longer possible.
    const Action* toConfirm() const { return toConfirm_; }
    /// Whether versions are kept, without which there is nothing to undo.
    bool keepsVersions() const { return !files_.workspace().stateDirectory().empty(); }
    /// Waits for the confirmation of the next step back or forward; says so when there is none.
    void request(UndoDirection direction);
    /// Waits for the confirmation of the deletion of a finished block.
    void requestDeletion(const Identifier& finishedBlock);
    /// The question that waits for an answer; empty: none.
    std::string question() const;
    /// Answers the question that waits.
    void confirm(bool isAgreed);

private:
    /// Applies an operation within reach; says `done`, or why it was refused.
    bool change(const workspace::Operation& operation, std::string_view done);
    bool change(const workspace::Operation& operation, std::string_view done,
                const workspace::ChangeManner& manner);
    bool mustAsk(const Action& action) const;
    void perform(const Action& action);
    void perform(const UndoStep& step);
    void deleteBlock(const Identifier& id);
    void tell(const std::vector<workspace::Event>& events);
    /// Rings the bell for questions that have come; not for those of the first look.
    void noteQuestions(bool isFirst);
    /// Says what has changed since the state was last shown; nothing while the work stands where it stood.
    void tellOfChanges(const std::vector<workspace::Event>& recorded);
    /// Keeps the state for `tellOfChanges`.
    void noteShown();
    /// Says the warning of the last change.
    void warn();
    /// Says once that the files cannot be watched.
    void warnOfNoWatch();
    /// Says the first thing that is wrong with the configuration; `quillmere config` shows all.
    void warnOf(const std::vector<config::Problem>& problems);
    /// Opens and closes forms so that they fit the state.
    void followState();
    void open(std::shared_ptr<Form>& place, const FormSubject& subject);
    /// Closes a form because the work moved on elsewhere.
    void closeForm(std::shared_ptr<Form>& form);

    workspace::RetryingWorkspace files_;
    Drafts drafts_;
    config::Values values_;
    std::shared_ptr<Form> workForm_;
    std::shared_ptr<Form> openedForm_;
    std::shared_ptr<Form> changedForm_;  ///< its draft is to be written
    std::vector<FormSubject> closedForms_;
    const Action* toConfirm_ = nullptr;
    std::optional<UndoStep> stepToConfirm_;
    std::optional<SleptThrough> slept_;
    std::optional<Identifier> blockToDelete_;  ///< once it is confirmed
    std::optional<QuillmereState> lastShown_;
    std::string message_;
    bool areOldDraftsRemoved_ = false;
    bool isToldOfNoDrafts_ = false;
    bool isToldOfNoWatch_ = false;
    bool isToldOfSilence_ = false;
    bool bell_ = false;
    std::size_t questionCount_ = 0;  ///< of the state last shown
};

}  // namespace quillmere::work
