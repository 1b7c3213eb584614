#include "screen/screen.hpp"

#include "base/text/failure.hpp"
#include "screen/forms/forms.hpp"
#include "screen/layout.hpp"
#include "work/event_text.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/transition.hpp>

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr char saveLetter = 's';
constexpr char questionsLetter = 'o';

bool isLetter(const Key& key, std::string_view letter)
{
    return key.kind == Key::Kind::character && key.text == letter;
}

bool isPageKey(const Key& key) { return key.kind == Key::Kind::pageUp || key.kind == Key::Kind::pageDown; }

std::string routeMessage(WidgetRoute route, WidgetRoute actual)
{
    return "The screen " + std::string(rawValue(route)) + " is not open now; the work is at " +
           std::string(rawValue(actual)) + ".";
}

}  // namespace

Screen::Screen(workspace::Workspace workspace, Drafts drafts, std::optional<WidgetRoute> route)
    : files_(std::move(workspace)), drafts_(std::move(drafts))
{
    refresh();
    if (route && isUsable()) {
        const auto actual = fromWorkflowState<WidgetRoute>(state().workflowState);
        if (*route != actual) {
            say(routeMessage(*route, actual));
        }
        drafts_.removeOld(subjectsOf(state()));
    }
}

bool Screen::countsSeconds() const
{
    if (!isUsable() || files_.isBehind()) {
        return true;  // not everything that makes a file usable again can be watched
    }
    const auto timer = TimerSnapshot::derive(state(), situation().now);
    const bool waits = state().workflowState == WorkflowState::idle && state().currentBlock;
    return waits || (timer && !timer->isPaused);
}

void Screen::refresh()
{
    keepDraft();
    const bool wasUsable = isUsable();
    const std::vector<workspace::Event> recorded = files_.refresh();
    if (!isUsable()) {
        return;
    }
    if (!wasUsable) {
        message_.clear();  // what was said of it is over
    }
    const std::optional<work::LastShown> before = std::exchange(seen_, work::LastShown::of(state()));
    // What was seen to come about before it could be recorded is not told again.
    if (!before || *before != *seen_) {
        const std::vector<workspace::Event> events =
            recorded.empty() && before ? work::newsSince(*before, state()) : recorded;
        if (before && events.empty()) {
            message_ = "The work was moved on elsewhere.";
        }
        tell(events);
    }
    if (!recorded.empty()) {
        warn();
    }
    followState();
}

void Screen::warn()
{
    if (const std::string& warning = situation().warning; !warning.empty()) {
        say(warning);
    }
}

void Screen::tell(const std::vector<workspace::Event>& events)
{
    for (const workspace::Event& event : events) {
        bell_ = true;
        message_ = work::eventText(event, situation().now);
    }
}

void Screen::say(std::string_view sentence)
{
    message_ += (message_.empty() ? "" : " ") + std::string(sentence);
}

void Screen::followState()
{
    const std::optional<FormSubject> subject = subjectFor(state());
    if (workForm_ && subject != workForm_->subject()) {
        if (workForm_->isTouched()) {
            say(drafts_.areKept() ? "What you wrote is kept." : "What you wrote could not be kept.");
            holdKeysOf(*workForm_);
        }
        workForm_.reset();
    }
    if (subject && !workForm_) {
        openForm(workForm_, *subject);
    }
    const std::vector<AgentQuestion> open = state().openQuestions();
    choose(std::min(chosenQuestion_, open.empty() ? 0 : open.size() - 1));
    const auto isAbout = [&](const AgentQuestion& question) {
        return sideForm_->subject() == answerTo(question);
    };
    if (sideForm_ && sideForm_->subject().kind == FormKind::answer &&
        std::none_of(open.begin(), open.end(), isAbout)) {
        say("This question was answered elsewhere.");
        if (sideForm_->isTouched()) {
            say(drafts_.areKept() ? "What you wrote is kept." : "What you wrote could not be kept.");
            holdKeysOf(*sideForm_);
        }
        sideForm_.reset();
    }
    if (toConfirm_ && !isPossible(toConfirm_->step, state())) {
        toConfirm_ = nullptr;
    }
}

void Screen::openForm(std::optional<Form>& place, const FormSubject& subject)
{
    place.emplace(formFor(subject, state(), situation().now));
    switch (drafts_.fillIn(*place)) {
        case BroughtBack::nothing: break;
        case BroughtBack::all: say("What you had written is back."); break;
        case BroughtBack::overChanges:
            say("What you had written is back, also where something else was written elsewhere since.");
            break;
    }
    if (!drafts_.areKept() && !std::exchange(isToldOfNoDrafts_, true)) {
        say("Only what is saved is kept: neither XDG_STATE_HOME nor HOME names a place for drafts.");
    }
}

void Screen::holdKeysOf(const Form& closing)
{
    // What is being typed into it would be commands now, or stand in another form.
    if (&closing == form()) {
        holdsKeys_ = true;
        say("Esc goes on.");
    }
}

Form* Screen::form()
{
    if (sideForm_) {
        return &*sideForm_;
    }
    return page_ == Page::work && workForm_ ? &*workForm_ : nullptr;
}

void Screen::press(const Key& key)
{
    if (key.kind == Key::Kind::paste && !form()) {
        return;  // a text, no command
    }
    if (holdsKeys_ && isUsable() && isLargeEnough(window_)) {
        if (key.kind == Key::Kind::escape) {
            holdsKeys_ = false;
            message_.clear();
        }
        return;
    }
    message_.clear();
    const Action* const action = std::exchange(toConfirm_, nullptr);
    if (action && isUsable() && isLargeEnough(window_)) {
        if (isLetter(key, "y")) {
            perform(*action);
        }
    } else if (!isUsable() || !isLargeEnough(window_)) {
        // What cannot be seen is not changed.
        isOver_ = isLetter(key, "q");
    } else if (form()) {
        pressInForm(key);
    } else if (page_ == Page::questions) {
        pressOnQuestions(key);
    } else {
        pressOnWork(key);
    }
}

void Screen::pressOnWork(const Key& key)
{
    if (isLetter(key, "q")) {
        isOver_ = true;
    } else if (isLetter(key, "a")) {
        page_ = Page::questions;
    } else if (key.kind == Key::Kind::character) {
        if (const Action* const action = actionOn(key.text.front(), situation())) {
            // What the engine refuses anyway is not asked about.
            const bool isAsked = !action->question.empty() && isPossible(action->step, state());
            toConfirm_ = isAsked ? action : nullptr;
            if (!isAsked) {
                perform(*action);
            }
        }
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
        openForm(sideForm_, newQuestion());
    } else if (key.kind == Key::Kind::up && chosenQuestion_ > 0) {
        choose(chosenQuestion_ - 1);
    } else if (key.kind == Key::Kind::down && chosenQuestion_ + 1 < open.size()) {
        choose(chosenQuestion_ + 1);
    } else if (isPageKey(key)) {
        const Area area = contentArea();
        const std::size_t most = mostScrolled(window_, area, situation(), chosenQuestion_);
        const std::size_t step = std::max<std::size_t>(area.rows, 2) - 1;
        const std::size_t first = std::min(scrolledRows_, most);
        scrolledRows_ =
            key.kind == Key::Kind::pageDown ? std::min(first + step, most) : first - std::min(first, step);
    } else if (key.kind == Key::Kind::enter && !open.empty()) {
        openForm(sideForm_, answerTo(open[chosenQuestion_]));
    }
}

void Screen::choose(std::size_t question)
{
    scrolledRows_ = question == chosenQuestion_ ? scrolledRows_ : 0;
    chosenQuestion_ = question;
}

void Screen::pressInForm(const Key& key)
{
    if (key == withControl(saveLetter)) {
        keepDraft();
        save();
    } else if (sideForm_ && key.kind == Key::Kind::escape) {
        keepDraft();
        sideForm_.reset();
    } else if (!sideForm_ && key == withControl(questionsLetter)) {
        keepDraft();
        page_ = Page::questions;
    } else if (isPageKey(key)) {
        form()->scroll(key.kind == Key::Kind::pageDown, window_, contentArea());
    } else {
        isDraftDue_ = form()->take(key, window_) || isDraftDue_;
    }
}

void Screen::keepDraft()
{
    if (!std::exchange(isDraftDue_, false) || !form()) {
        return;
    }
    try {
        drafts_.keep(*form());
    } catch (const std::system_error& error) {
        say("The draft cannot be kept: " + base::failureText(error));
    }
}

void Screen::perform(const Action& action) { change(action.apply, action.done); }

void Screen::save()
{
    const Form& filled = *form();
    const FormSubject subject = filled.subject();
    const Saving& saving = savingFor(stepOf(filled, state()));
    try {
        if (!change([&](QuillmereState& fresh, Instant now) { carryOut(filled, fresh, now); }, saving.done)) {
            return;
        }
    } catch (const Unacceptable& slip) {
        form()->moveTo(slip.field);
        say(slip.what());
        return;
    }
    try {
        drafts_.forget(subject);
    } catch (const std::system_error& error) {
        say("The draft cannot be removed: " + base::failureText(error));
    }
}

bool Screen::change(const workspace::Operation& operation, std::string_view done)
{
    std::vector<workspace::Event> events;
    std::string outcome(done);
    try {
        events = files_.change(operation);
    } catch (const Unacceptable&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const workspace::ChangeSaved& error) {
        events = files_.refresh();
        outcome = error.what();
    } catch (const std::exception& error) {
        const std::string reason = base::failureText(error);
        // The state may have moved on, or be out of reach.
        refresh();
        say(reason);
        return false;
    }
    seen_ = work::LastShown::of(state());
    tell(events);
    say(outcome);
    warn();
    sideForm_.reset();
    if (workForm_ && subjectFor(state()) != workForm_->subject()) {
        workForm_.reset();
    }
    followState();
    return true;
}

}  // namespace quillmere::screen
