#include "screen/screen.hpp"

#include "screen/action_keys.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/history_page.hpp"
#include "screen/pages/keys_page.hpp"
#include "screen/pages/look_back_page.hpp"
#include "screen/pages/models_page.hpp"
#include "screen/pages/questions_page.hpp"
#include "screen/pages/recall_page.hpp"
#include "screen/work_keys.hpp"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillmere::screen {
namespace {

constexpr char saveLetter = 's';
constexpr char questionsLetter = 'o';
constexpr char modelsLetter = 't';
constexpr char recallLetter = 'r';

/// Makes an editor when the presenter has opened another form.
void adopt(std::optional<FormEditor>& editor, const std::shared_ptr<work::Form>& form)
{
    if (!form) {
        editor.reset();
    } else if (!editor || editor->form() != form) {
        editor.emplace(form);
    }
}

}  // namespace

Screen::Screen(workspace::Workspace workspace, work::Drafts drafts, std::optional<WidgetRoute> route,
               const config::Configuration& configuration)
    : presenter_(std::move(workspace), std::move(drafts), route, configuration)
{
    follow(std::nullopt);
}

void Screen::refresh()
{
    const std::optional<work::FormSubject> before = subject();
    presenter_.refresh();
    follow(before);
}

void Screen::noteSleep(const base::Sleep& sleep)
{
    if (!presenter_.noteSleep(sleep)) {
        return;
    }
    if (work::actionFor(work::ActionId::wasAway, situation())) {
        presenter_.say(keyName(work::ActionId::wasAway) + " makes it a pause.");
    }
    if (work::actionFor(work::ActionId::endEarlier, situation())) {
        presenter_.say(keyName(work::ActionId::endEarlier) + " ends the session then.");
    }
}

void Screen::follow(const std::optional<work::FormSubject>& before)
{
    if (pages_.empty() && !presenter_.openedForm() && presenter_.question().empty()) {
        presenter_.setReach(Page::reach);
    }
    for (const work::FormSubject& closed : presenter_.takeClosedForms()) {
        holdsKeys_ = holdsKeys_ || closed == before;
    }
    adopt(workForm_, presenter_.workForm());
    adopt(openedForm_, presenter_.openedForm());
    if (presenter_.isUsable()) {
        std::erase_if(pages_, [](const std::unique_ptr<Page>& page) { return !page->follow(); });
    }
}

FormEditor* Screen::form()
{
    if (openedForm_) {
        return &*openedForm_;
    }
    return !page() && workForm_ ? &*workForm_ : nullptr;
}

FormPage Screen::formPage(const Area& area) const
{
    return {*form(), openedForm_ ? work::Recall() : presenter_.recall(), window_, area};
}

std::optional<work::FormSubject> Screen::subject() const
{
    return form() ? std::optional(form()->form()->subject()) : std::nullopt;
}

void Screen::click(Place place)
{
    if (!isLargeEnough(window_)) {
        return;
    }
    const Frame shown = frame();
    const KeyHint* const hint = hintAt(shown, window_, place);
    if (hint && hint->key == "^C") {
        isOver_ = true;  // pressed, it is a signal
    } else if (const std::optional<Key> key = hint ? keyNamed(hint->key) : std::nullopt) {
        press(*key);
    }
}

void Screen::press(const Key& key)
{
    if (key.kind == Key::Kind::click) {
        click(key.place);
        return;
    }
    const bool isForText = form() || (page() && page()->takesText());
    if (key.kind == Key::Kind::paste && !isForText) {
        return;  // pasted text gives no commands
    }
    const std::optional<work::FormSubject> before = subject();
    take(key);
    follow(before);
}

void Screen::take(const Key& key)
{
    if (holdsKeys_ && isVisible()) {
        if (key.kind == Key::Kind::escape) {
            holdsKeys_ = false;
            presenter_.clearMessage();
        }
        return;
    }
    presenter_.clearMessage();
    if (!isVisible()) {
        // A person does not change what they cannot see.
        presenter_.confirm(false);
        isOver_ = types(key, "q");
    } else if (!presenter_.question().empty()) {
        presenter_.confirm(types(key, "y"));
    } else if (form()) {
        pressInForm(key);
    } else if (page()) {
        pressOnPage(key);
    } else {
        pressOnWork(key);
    }
}

void Screen::pressOnPage(const Key& key)
{
    PageStep step = page()->press(key, {window_, contentArea()});
    switch (step.kind) {
        case PageStep::Kind::stays: break;
        case PageStep::Kind::leaves: pages_.pop_back(); break;
        case PageStep::Kind::quits: isOver_ = true; break;
        case PageStep::Kind::isForTheWork: pressOnWork(key); break;
    }
    if (step.opened) {
        pages_.push_back(std::move(step.opened));
    }
}

void Screen::pressOnWork(const Key& key)
{
    if (types(key, "q")) {
        isOver_ = true;
    } else if (types(key, keysKey)) {
        open<KeysPage>();
    } else if (types(key, questionsKey)) {
        open<QuestionsPage>();
    } else if (types(key, historyKey)) {
        open<HistoryPage>();
    } else if (types(key, lookBackKey)) {
        open<LookBackPage>();
    } else {
        pressForAction(key);
    }
}

void Screen::pressForAction(const Key& key)
{
    if (types(key, undoKey)) {
        pages_.clear();
        presenter_.request(work::UndoDirection::undo);
    } else if (types(key, redoKey)) {
        pages_.clear();
        presenter_.request(work::UndoDirection::redo);
    } else if (const work::Action* const action = actionOn(key, situation())) {
        pages_.clear();
        presenter_.request(*action);
    } else if (key.kind == Key::Kind::character) {
        presenter_.say("Nothing is on this key now; ? shows the keys.");
    }
}

void Screen::leaveForm()
{
    if (openedForm_) {
        presenter_.closeOpenedForm();
    } else if (const work::Action* const action =
                   work::actionFor(work::ActionId::leavePlanning, situation())) {
        keepDraft();
        presenter_.request(*action);
    } else {
        keepDraft();
        open<KeysPage>();
    }
}

bool Screen::openFromForm(const Key& key)
{
    if (openedForm_) {
        return false;
    }
    if (key == withControl(questionsLetter)) {
        open<QuestionsPage>();
    } else if (key == withControl(recallLetter) && !presenter_.recall().empty()) {
        open<RecallPage>();
    } else if (key == withControl(modelsLetter) && !presenter_.models().empty()) {
        open<ModelsPage>();
    } else {
        return false;
    }
    keepDraft();
    return true;
}

void Screen::pressInForm(const Key& key)
{
    FormEditor& editor = *form();
    if (key == withControl(saveLetter) || (key.kind == Key::Kind::enter && editor.isOnLastLine())) {
        if (const std::optional<std::string> field = presenter_.save(editor.form())) {
            editor.moveTo(*field);
        }
    } else if (key.kind == Key::Kind::escape) {
        leaveForm();
    } else if (openFromForm(key)) {
        return;
    } else if (isPageKey(key)) {
        editor.scroll(key.kind == Key::Kind::pageDown, formPage(contentArea()).fields());
    } else if (editor.take(key, window_)) {
        presenter_.noteChange(editor.form());
    }
}

}  // namespace quillmere::screen
