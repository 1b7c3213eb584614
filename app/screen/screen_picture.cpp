// The picture of the live screen.
#include "base/text/columns.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/screen.hpp"
#include "screen/work_keys.hpp"
#include "work/event_text.hpp"
#include "work/forms/forms.hpp"
#include "work/situation_view.hpp"
#include "work/timer_text.hpp"

#include <optional>

namespace quillmere::screen {
namespace {

/// What is to be done, and for a session in review since when its time is over.
std::string captionOf(const work::SituationView& view, const base::SeenFrom& here)
{
    // Some captions are only the title again.
    const std::string caption = view.caption == view.title ? "" : view.caption;
    if (view.timer) {
        return caption + (view.timer->isPaused ? ", paused" : "");
    }
    return caption + (view.overSince ? ", " + work::overText(*view.overSince, here) : "");
}

}  // namespace

std::string Screen::title() const
{
    const auto view =
        presenter_.isUsable() ? std::optional(work::SituationView::of(situation())) : std::nullopt;
    if (!view || !view->timer) {
        return "Quillmere";
    }
    const std::string phase(view->title);
    if (view->timer->hasRunOut()) {
        return phase + " over";
    }
    return QuillmereDesign::timeText(view->timer->remainingSeconds) + " " + phase +
           (view->timer->isPaused ? ", paused" : "");
}

std::vector<KeyHint> Screen::keysOfForm(bool scrolls) const
{
    const work::Saving& saving = work::savingFor(work::moveOf(*form()->form(), situation().state));
    std::vector<KeyHint> hints{{"^S", std::string(saving.label)}, {"Tab", "next field"}};
    if (!openedForm_) {
        if (!presenter_.models().empty()) {
            hints.push_back({"^T", "like another"});
        }
        hints.push_back({"^O", questionsLabel(situation().state)});
        if (!presenter_.recall().empty()) {
            hints.push_back({"^R", "what helps"});
        }
    }
    if (scrolls) {
        hints.push_back({"PgDn", "scroll"});
    }
    const work::Action* const leaving = work::actionFor(work::ActionId::leavePlanning, situation());
    hints.push_back({"Esc", openedForm_ ? "back" : leaving ? std::string(leaving->label) : "more"});
    hints.push_back({"^C", "quit"});
    return hints;
}

std::vector<KeyHint> Screen::keys(bool scrolls) const
{
    if (!presenter_.isUsable()) {
        return {{"q", "quit"}};
    }
    if (holdsKeys_) {
        return {{"Esc", "go on"}, {"^C", "quit"}};
    }
    if (!presenter_.question().empty()) {
        return {{"y", "yes"}, {"any other key", "no"}};
    }
    if (form()) {
        return keysOfForm(scrolls);
    }
    return page() ? page()->keys(scrolls) : usualKeys(presenter_, window_);
}

std::string Screen::message() const
{
    if (std::string question = presenter_.question(); !question.empty()) {
        return question;
    }
    const std::string& message = presenter_.message();
    return message + (holdsKeys_ ? (message.empty() ? "Esc goes on." : " Esc goes on.") : "");
}

Frame Screen::frame(bool scrolls) const
{
    Frame frame{.title = "Quillmere",
                .caption = {},
                .accent = QuillmereDesign::Accent::neutral,
                .note = {},
                .message = message(),
                .keys = keys(scrolls)};
    if (presenter_.isUsable()) {
        const work::SituationView view = work::SituationView::of(situation());
        frame.title = view.title;
        frame.caption = captionOf(view, {situation().now, presenter_.hours()});
        frame.accent = view.accent;
        frame.note = view.openQuestionCount == 0 ? "" : work::waitingQuestionsText(view.openQuestionCount);
    }
    return frame;
}

bool Screen::scrolls(const Area& area) const
{
    if (!presenter_.isUsable()) {
        return false;
    }
    if (form()) {
        return form()->scrolls(formPage(area).fields());
    }
    return page() && page()->scrolls({window_, area});
}

Frame Screen::frame() const
{
    // The hint may take a row: there is less room with it, and so no less to scroll.
    const Frame without = frame(false);
    Canvas canvas(window_);
    return scrolls(drawFrame(canvas, without)) ? frame(true) : without;
}

Area Screen::contentArea() const
{
    Canvas canvas(window_);
    return drawFrame(canvas, frame());
}

void Screen::drawContent(Canvas& canvas, const Area& area, Look heading) const
{
    if (!presenter_.isUsable()) {
        drawTrouble(canvas, area, presenter_.trouble());
    } else if (form()) {
        formPage(area).draw(canvas, heading);
    } else if (page()) {
        page()->draw(canvas, area, heading);
    } else if (work::SituationView::of(situation()).timer) {
        drawCountdown(canvas, area, situation(), presenter_.recall(), presenter_.hours());
    } else {
        drawIdle(canvas, area, situation(), presenter_.recall(), presenter_.values());
    }
}

bool Screen::isVisible() const
{
    if (!presenter_.isUsable() || !contains(window_, leastSmallSize)) {
        return false;
    }
    constexpr std::size_t headlineAndKeys = 2;
    const bool isWork = !form() && !page();
    const bool isWhole =
        base::linesWithin(presenter_.question(), window_.columns).size() <= window_.rows - headlineAndKeys;
    return isLargeEnough(window_) || (isWork && isWhole);
}

Canvas Screen::smallPicture(Charset charset) const
{
    Canvas canvas(window_, charset);
    if (!contains(window_, leastSmallSize)) {
        Flow(canvas, canvas.area()).paragraph("Too small: 20 columns and 5 rows are needed. q quits.");
    } else if (!presenter_.isUsable()) {
        drawSmallNotice(canvas, frame(), presenter_.trouble());
    } else if (!isVisible()) {
        drawSmallNotice(canvas, frame(), "This needs 40 columns and 12 rows. q quits.");
    } else {
        drawSmallWork(canvas, frame(), situation(), presenter_.hours());
    }
    return canvas;
}

Canvas Screen::picture(Charset charset) const
{
    Canvas canvas(window_, charset);
    if (!isLargeEnough(window_)) {
        return smallPicture(charset);
    }
    const Frame surrounding = frame();
    drawContent(canvas, drawFrame(canvas, surrounding), {.accent = surrounding.accent, .bold = true});
    return canvas;
}

}  // namespace quillmere::screen
