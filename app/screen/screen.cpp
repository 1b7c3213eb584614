#include "screen/screen.hpp"

#include "screen/action_keys.hpp"
#include "screen/canvas/layout.hpp"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillmere::screen {
namespace {

constexpr char saveLetter = 's';
constexpr char questionsLetter = 'o';
constexpr char modelsLetter = 't';

bool isLetter(const Key& key, std::string_view letter)
{
    return key.kind == Key::Kind::character && key.text == letter;
}

bool isPageKey(const Key& key) { return key.kind == Key::Kind::pageUp || key.kind == Key::Kind::pageDown; }

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
    for (const work::FormSubject& closed : presenter_.takeClosedForms()) {
        holdsKeys_ = holdsKeys_ || closed == before;
    }
    adopt(workForm_, presenter_.workForm());
    adopt(openedForm_, presenter_.openedForm());
    if (page_ == Page::models && presenter_.models().empty()) {
        page_ = Page::work;
    }
    if (presenter_.isUsable()) {
        const std::size_t count = state().openQuestions().size();
        choose(std::min(chosenQuestion_, count == 0 ? 0 : count - 1));
    }
}

FormEditor* Screen::form()
{
    if (openedForm_) {
        return &*openedForm_;
    }
    return page_ == Page::work && workForm_ ? &*workForm_ : nullptr;
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
    if (key.kind == Key::Kind::paste && !form()) {
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
        isOver_ = isLetter(key, "q");
    } else if (!presenter_.question().empty()) {
        presenter_.confirm(isLetter(key, "y"));
    } else if (form()) {
        pressInForm(key);
    } else if (page_ == Page::questions) {
        pressOnQuestions(key);
    } else if (page_ == Page::models) {
        pressOnModels(key);
    } else {
        pressOnWork(key);
    }
}

void Screen::pressOnWork(const Key& key)
{
    if (page_ == Page::keys && key.kind == Key::Kind::escape) {
        page_ = Page::work;
    } else if (isLetter(key, keysKey)) {
        page_ = page_ == Page::keys ? Page::work : Page::keys;
    } else if (isLetter(key, "q")) {
        isOver_ = true;
    } else if (isLetter(key, "a")) {
        page_ = Page::questions;
    } else {
        pressForAction(key);
    }
}

void Screen::pressForAction(const Key& key)
{
    if (isLetter(key, undoKey)) {
        page_ = Page::work;
        presenter_.request(work::UndoDirection::undo);
    } else if (isLetter(key, redoKey)) {
        page_ = Page::work;
        presenter_.request(work::UndoDirection::redo);
    } else if (const work::Action* const action = actionOn(key, situation())) {
        page_ = Page::work;
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
        page_ = Page::keys;
    }
}

void Screen::pressOnQuestions(const Key& key)
{
    const std::vector<AgentQuestion> open = state().openQuestions();
    if (key.kind == Key::Kind::escape) {
        page_ = Page::work;
    } else if (isLetter(key, "q")) {
        isOver_ = true;
    } else if (isLetter(key, "n")) {
        presenter_.openQuestion();
    } else if (key.kind == Key::Kind::up && chosenQuestion_ > 0) {
        choose(chosenQuestion_ - 1);
    } else if (key.kind == Key::Kind::down && chosenQuestion_ + 1 < open.size()) {
        choose(chosenQuestion_ + 1);
    } else if (isPageKey(key)) {
        scrollQuestion(key.kind == Key::Kind::pageDown);
    } else if (key.kind == Key::Kind::enter && !open.empty()) {
        presenter_.openAnswer(open[chosenQuestion_]);
    }
}

void Screen::scrollQuestion(bool down)
{
    const Area area = contentArea();
    const std::size_t most = mostScrolled(window_, area, situation(), chosenQuestion_);
    const std::size_t step = std::max<std::size_t>(area.rows, 2) - 1;
    const std::size_t first = std::min(scrolledRows_, most);
    scrolledRows_ = down ? std::min(first + step, most) : first - std::min(first, step);
}

void Screen::choose(std::size_t question)
{
    scrolledRows_ = question == chosenQuestion_ ? scrolledRows_ : 0;
    chosenQuestion_ = question;
}

void Screen::pressOnModels(const Key& key)
{
    const std::vector<work::Model> models = presenter_.models();
    if (key.kind == Key::Kind::escape) {
        page_ = Page::work;
    } else if (isLetter(key, "q")) {
        isOver_ = true;
    } else if (key.kind == Key::Kind::up && chosenModel_ > 0) {
        --chosenModel_;
    } else if (key.kind == Key::Kind::down && chosenModel_ + 1 < models.size()) {
        ++chosenModel_;
    } else if (key.kind == Key::Kind::enter && chosenModel_ < models.size()) {
        presenter_.planLike(models[chosenModel_]);
        page_ = Page::work;
    }
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
    } else if (!openedForm_ && key == withControl(questionsLetter)) {
        keepDraft();
        page_ = Page::questions;
    } else if (!openedForm_ && key == withControl(modelsLetter) && !presenter_.models().empty()) {
        keepDraft();
        chosenModel_ = 0;
        page_ = Page::models;
    } else if (isPageKey(key)) {
        editor.scroll(key.kind == Key::Kind::pageDown, window_, besideRecall(contentArea()));
    } else if (editor.take(key, window_)) {
        presenter_.noteChange(editor.form());
    }
}

}  // namespace quillmere::screen
