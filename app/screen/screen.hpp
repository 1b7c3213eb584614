// The live screen without its terminal: keys change the work, and pictures follow from it.
#pragma once

#include "screen/editors/form_editor.hpp"
#include "screen/pages/form_page.hpp"
#include "screen/pages/page.hpp"
#include "screen/pages/pages.hpp"
#include "work/presenter.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::screen {

/// Gives the keys to what is in view: a form, the page on top, or the work.
class Screen {
public:
    /// As the presenter: opens on the page of the state.
    Screen(workspace::Workspace workspace, work::Drafts drafts, std::optional<WidgetRoute> route,
           const config::Configuration& configuration = {});
    // The pages refer to the presenter.
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

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
    static constexpr Size usualWindow{.rows = 24, .columns = 80};

    const workspace::Situation& situation() const { return presenter_.situation(); }

    /// The page on top; null: the work is in view.
    Page* page() const { return pages_.empty() ? nullptr : pages_.back().get(); }
    /// The form that receives the keys; null on pages without one.
    FormEditor* form();
    const FormEditor* form() const { return const_cast<Screen*>(this)->form(); }
    /// The form in its area. A form that the person has opened has no recall.
    FormPage formPage(const Area& area) const;

    void take(const Key& key);
    /// Presses the key whose hint stands there.
    void click(Place place);
    void pressOnPage(const Key& key);
    void pressOnWork(const Key& key);
    void pressForAction(const Key& key);
    void pressInForm(const Key& key);
    /// Opens the page of a key in the form of the work. Returns false when the key has none.
    bool openFromForm(const Key& key);
    /// Goes back from a form: closes it, leaves the planning, or shows what else is possible.
    void leaveForm();

    /// Opens a page over the work.
    template <class Shown>
    void open()
    {
        pages_.clear();
        presenter_.setReach(Shown::reach);
        pages_.push_back(std::make_unique<Shown>(presenter_));
    }

    /// Adopts the forms and the state of the presenter. Holds the keys when it has closed the form that
    /// received them, which was `before`.
    void follow(const std::optional<work::FormSubject>& before);
    std::optional<work::FormSubject> subject() const;

    /// Whether the window shows all that keys can change now.
    bool isVisible() const;
    /// The picture in a window without room for a page.
    Canvas smallPicture(Charset charset) const;

    /// With the keys that scroll only where there is something to scroll.
    Frame frame() const;
    Frame frame(bool scrolls) const;
    /// Whether a part of the form or page is out of view in this area.
    bool scrolls(const Area& area) const;
    std::string message() const;
    /// The area inside the frame.
    Area contentArea() const;
    std::vector<KeyHint> keys(bool scrolls) const;
    std::vector<KeyHint> keysOfForm(bool scrolls) const;
    void drawContent(Canvas& canvas, const Area& area, Look heading) const;

    work::Presenter presenter_;
    Size window_ = usualWindow;
    std::vector<std::unique_ptr<Page>> pages_;  ///< each covers the one before, and the first the work
    std::optional<FormEditor> workForm_;        ///< of the state
    std::optional<FormEditor> openedForm_;      ///< covers everything else
    bool holdsKeys_ = false;                    ///< ignores keys until Esc
    bool isOver_ = false;
};

}  // namespace quillmere::screen
