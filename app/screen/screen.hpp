// The live screen without its terminal: keys change the work, and pictures follow from it.
#pragma once

#include "screen/editors/form_editor.hpp"
#include "screen/pages/pages.hpp"
#include "work/presenter.hpp"

#include <optional>
#include <string>
#include <vector>

namespace quillmere::screen {

class Screen {
public:
    /// As the presenter: opens on the page of the state.
    Screen(workspace::Workspace workspace, work::Drafts drafts, std::optional<WidgetRoute> route,
           const config::Configuration& configuration = {});

    /// For poll(2): readable when `refresh` is due.
    int descriptor() const { return presenter_.descriptor(); }
    /// Whether `refresh` is due every second.
    bool countsSeconds() const { return presenter_.countsSeconds(); }
    /// Reads the files and the clock.
    void refresh();
    /// Presenter::compressVersion.
    void compressVersion() { presenter_.compressVersion(); }

    /// As Presenter::noteSleep; says the keys that correct the session.
    void noteSleep(const base::Sleep& sleep);

    /// Presenter::takeSilenceWarning.
    std::string takeSilenceWarning() { return presenter_.takeSilenceWarning(); }

    void resize(Size window) { window_ = window; }
    void press(const Key& key);

    /// Writes the draft of what was typed. To be called after the keys that arrived together.
    void keepDraft() { presenter_.keepDraft(); }

    Canvas picture(Charset charset) const;

    /// Of the window: "14:59 Focus"; "Quillmere" while no timer runs.
    std::string title() const;

    bool isOver() const { return isOver_; }
    /// As Presenter::takeBell.
    bool takeBell() { return presenter_.takeBell(); }

private:
    static constexpr const char* undoKey = "u";
    static constexpr const char* redoKey = "U";
    static constexpr const char* keysKey = "?";
    static constexpr Size usualWindow{.rows = 24, .columns = 80};

    enum class Page { work, keys, questions, models };

    const workspace::Situation& situation() const { return presenter_.situation(); }
    const QuillmereState& state() const { return situation().state; }

    /// The form that receives the keys; null on pages without one.
    FormEditor* form();
    const FormEditor* form() const { return const_cast<Screen*>(this)->form(); }

    void take(const Key& key);
    /// Presses the key whose hint stands there.
    void click(Place place);
    void pressOnWork(const Key& key);
    /// Keys of the pages of work and of keys.
    void pressForAction(const Key& key);
    void pressOnQuestions(const Key& key);
    void pressOnModels(const Key& key);
    void pressInForm(const Key& key);
    /// Goes back from a form: closes it, leaves the planning, or shows what else is possible.
    void leaveForm();
    void choose(std::size_t question);
    void scrollQuestion(bool down);

    /// Adopts the forms and the questions of the presenter. Holds the keys when it has closed the form that
    /// received them, which was `before`.
    void follow(const std::optional<work::FormSubject>& before);
    std::optional<work::FormSubject> subject() const;

    /// Whether the window shows all that keys can change now.
    bool isVisible() const;
    /// The picture in a window without room for a page.
    Canvas smallPicture(Charset charset) const;

    Frame frame() const;
    std::string message() const;
    /// The area inside the frame.
    Area contentArea() const;
    /// The part of the area for a form; in a wide window what helps to fill it in stands beside.
    Area besideRecall(Area area) const;
    std::vector<KeyHint> keys() const;
    std::vector<KeyHint> keysOfForm() const;
    std::vector<KeyHint> keysOfQuestions() const;
    std::vector<KeyHint> keysOfModels() const;
    std::vector<KeyHint> keysOfWork() const;
    /// Every key of the work, for the page of keys.
    std::vector<KeyHint> allKeys() const;
    std::string questionCount() const;
    std::string questionsLabel() const;

    work::Presenter presenter_;
    Size window_ = usualWindow;
    Page page_ = Page::work;
    std::size_t chosenQuestion_ = 0;
    std::size_t scrolledRows_ = 0;  ///< of the chosen question
    std::size_t chosenModel_ = 0;
    std::optional<FormEditor> workForm_;    ///< of the state
    std::optional<FormEditor> openedForm_;  ///< covers everything else
    bool holdsKeys_ = false;                ///< ignores keys until Esc
    bool isOver_ = false;
};

}  // namespace quillmere::screen
