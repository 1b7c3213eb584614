// The live screen without its terminal: what a person presses changes the work, and what is to be seen
// follows from it.
#pragma once

#include "screen/actions.hpp"
#include "screen/drafts.hpp"
#include "screen/pages/pages.hpp"
#include "work/state_change.hpp"
#include "workspace/retrying_workspace.hpp"

#include <quillmere/widget/widget_route.hpp>

namespace quillmere::screen {

class Screen {
public:
    /// Opens on the screen of the state; where a `route` leads elsewhere, the person is told so.
    Screen(workspace::Workspace workspace, Drafts drafts, std::optional<WidgetRoute> route);

    /// For poll(2): readable when `refresh` is due.
    int descriptor() const { return files_.descriptor(); }

    /// Whether what is shown changes with every second, so that `refresh` is due with each.
    bool countsSeconds() const;

    /// Looks at the files and the clock, and shows what has changed.
    void refresh();

    void resize(Size window) { window_ = window; }
    void press(const Key& key);

    /// Keeps what was written since the last call; to be called when the keys that came together are taken.
    void keepDraft();

    Canvas picture(Charset charset) const;

    bool isOver() const { return isOver_; }
    /// Whether something came about since the last call of which a person should hear.
    bool takeBell() { return std::exchange(bell_, false); }

private:
    static constexpr Size usualWindow{.rows = 24, .columns = 80};

    enum class Page { work, questions };

    const workspace::Situation& situation() const { return *files_.situation(); }
    const QuillmereState& state() const { return situation().state; }
    bool isUsable() const { return files_.situation() && !files_.trouble(); }

    /// The form that keys go to; null on screens without one.
    Form* form();
    const Form* form() const { return const_cast<Screen*>(this)->form(); }

    void pressOnWork(const Key& key);
    void pressOnQuestions(const Key& key);
    void choose(std::size_t question);
    void pressInForm(const Key& key);
    void perform(const Action& action);
    void save();
    void openForm(std::optional<Form>& place, const FormSubject& subject);

    /// Does something to the files; says `done` or why not.
    bool change(const workspace::Operation& operation, std::string_view done);
    void tell(const std::vector<workspace::Event>& events);
    /// Says what else the person should hear of the last change.
    void warn();
    /// Opens, closes and keeps forms so that they are those of the state.
    void followState();
    void say(std::string_view sentence);
    /// Where it is the form that keys go to, keeps them from what comes in its place, until the person has
    /// seen it.
    void holdKeysOf(const Form& closing);

    Frame frame() const;
    /// The room that the frame leaves.
    Area contentArea() const;
    std::vector<KeyHint> keys() const;
    std::string questionCount() const;

    workspace::RetryingWorkspace files_;
    Drafts drafts_;
    Size window_ = usualWindow;
    Page page_ = Page::work;
    std::size_t chosenQuestion_ = 0;
    std::size_t scrolledRows_ = 0;  ///< of the chosen question
    std::optional<Form> workForm_;  ///< of the state
    std::optional<Form> sideForm_;  ///< of a question, over everything else
    const Action* toConfirm_ = nullptr;
    std::optional<work::LastShown> seen_;
    std::string message_;
    bool holdsKeys_ = false;
    bool isDraftDue_ = false;
    bool isToldOfNoDrafts_ = false;
    bool bell_ = false;
    bool isOver_ = false;
};

}  // namespace quillmere::screen
