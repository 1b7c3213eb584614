// The picture of the live screen.
#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "screen/action_keys.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/screen.hpp"
#include "work/event_text.hpp"
#include "work/forms/forms.hpp"
#include "work/situation_view.hpp"

#include <iterator>
#include <optional>

namespace quillmere::screen {

std::string Screen::questionCount() const
{
    const auto count = std::ssize(state().openQuestions());
    return count == 0 ? "" : base::countText(count, "question");
}

std::string Screen::title() const
{
    const auto view =
        presenter_.isUsable() ? std::optional(work::SituationView::of(situation())) : std::nullopt;
    if (!view || !view->timer) {
        return "Quillmere";
    }
    const std::string phase(view->title);
    if (view->timer->remainingSeconds < 0) {
        return phase + " over";
    }
    return QuillmereDesign::timeText(view->timer->remainingSeconds) + " " + phase +
           (view->timer->isPaused ? ", paused" : "");
}

std::string Screen::questionsLabel() const { return questionCount().empty() ? "questions" : questionCount(); }

std::vector<KeyHint> Screen::keysOfForm() const
{
    const work::Saving& saving = work::savingFor(work::moveOf(*form()->form(), state()));
    std::vector<KeyHint> hints{{"^S", std::string(saving.label)}, {"Tab", "next field"}};
    if (openedForm_) {
        hints.push_back({"Esc", "back"});
    } else {
        const work::Action* const leaving = work::actionFor(work::ActionId::leavePlanning, situation());
        if (!presenter_.models().empty()) {
            hints.push_back({"^T", "like another"});
        }
        hints.push_back({"^O", questionsLabel()});
        hints.push_back({"Esc", leaving ? std::string(leaving->label) : "more"});
    }
    hints.push_back({"PgDn", "scroll"});
    hints.push_back({"^C", "quit"});
    return hints;
}

std::vector<KeyHint> Screen::keysOfQuestions() const
{
    std::vector<KeyHint> hints;
    if (!state().openQuestions().empty()) {
        hints = {{"↑↓", "choose"}, {"Enter", "answer"}, {"PgDn", "scroll"}};
    }
    hints.push_back({"n", "ask one"});
    hints.push_back({"Esc", "back"});
    hints.push_back({"q", "quit"});
    return hints;
}

std::vector<KeyHint> Screen::keysOfModels() const
{
    return {{"↑↓", "choose"}, {"Enter", "take its words and lengths"}, {"Esc", "back"}, {"q", "quit"}};
}

std::vector<KeyHint> Screen::keysOfWork() const
{
    std::vector<KeyHint> hints;
    for (const work::Action* const action : work::actionsFor(situation())) {
        if (isUsual(action->id)) {
            hints.push_back({keyName(action->id), std::string(action->label)});
        }
    }
    hints.push_back({"a", questionsLabel()});
    if (presenter_.keepsVersions()) {
        hints.push_back({undoKey, "undo"});
    }
    hints.push_back({keysKey, "keys"});
    hints.push_back({"q", "quit"});
    return hints;
}

std::vector<KeyHint> Screen::allKeys() const
{
    std::vector<KeyHint> keys;
    for (const work::Action* const action : work::actionsFor(situation())) {
        if (action->id != work::ActionId::leavePlanning) {
            keys.push_back({keyName(action->id), std::string(action->label)});
        }
    }
    if (presenter_.keepsVersions()) {
        keys.push_back({undoKey, "undo the last change"});
        keys.push_back({redoKey, "redo what was undone"});
    }
    keys.push_back({"a", questionsLabel()});
    keys.push_back({"q", "quit"});
    return keys;
}

std::vector<KeyHint> Screen::keys() const
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
        return keysOfForm();
    }
    switch (page_) {
        case Page::questions: return keysOfQuestions();
        case Page::models: return keysOfModels();
        case Page::keys: return {{"Esc", "back"}};
        case Page::work: break;
    }
    return keysOfWork();
}

std::string Screen::message() const
{
    if (std::string question = presenter_.question(); !question.empty()) {
        return question;
    }
    const std::string& message = presenter_.message();
    return message + (holdsKeys_ ? (message.empty() ? "Esc goes on." : " Esc goes on.") : "");
}

Frame Screen::frame() const
{
    Frame frame{.title = "Quillmere",
                .caption = {},
                .accent = QuillmereDesign::Accent::neutral,
                .note = {},
                .message = message(),
                .keys = keys()};
    if (presenter_.isUsable()) {
        const work::SituationView view = work::SituationView::of(situation());
        const bool isPaused = view.timer && view.timer->isPaused;
        frame.title = view.title;
        // Some captions are only the title again.
        frame.caption = view.caption == view.title ? "" : view.caption + (isPaused ? ", paused" : "");
        frame.accent = view.accent;
        frame.note = view.openQuestionCount == 0 ? "" : work::waitingQuestionsText(view.openQuestionCount);
    }
    return frame;
}

Area Screen::contentArea() const
{
    Canvas canvas(window_);
    return drawFrame(canvas, frame());
}

Area Screen::besideRecall(Area area) const
{
    // Forms keep the columns of a usual window.
    constexpr std::size_t columnsOfForm = 76;
    constexpr std::size_t leastForRecall = 36;
    if (!openedForm_ && !presenter_.recall().empty() && area.columns >= columnsOfForm + leastForRecall) {
        area.columns = columnsOfForm;
    }
    return area;
}

bool Screen::isVisible() const
{
    if (!presenter_.isUsable() || !contains(window_, leastSmallSize)) {
        return false;
    }
    constexpr std::size_t headlineAndKeys = 2;
    const bool isWork = !form() && page_ == Page::work;
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
    const Area area = drawFrame(canvas, surrounding);
    if (!presenter_.isUsable()) {
        drawTrouble(canvas, area, presenter_.trouble());
    } else if (const FormEditor* const current = form()) {
        const Look look{.accent = surrounding.accent, .bold = true};
        const Area fields = besideRecall(area);
        current->draw(canvas, fields, look);
        if (fields.columns < area.columns) {
            const std::size_t gap = columnsOf(QuillmereDesign::Spacing::section);
            const std::size_t first = fields.columns + gap;
            drawRecall(canvas, {area.row, area.column + first, area.rows, area.columns - first},
                       presenter_.recall(), look);
        }
    } else if (page_ == Page::questions) {
        drawQuestions(canvas, area, situation(), chosenQuestion_, scrolledRows_, presenter_.hours());
    } else if (page_ == Page::models) {
        drawModels(canvas, area, presenter_.models(), chosenModel_,
                   {.accent = surrounding.accent, .bold = true});
    } else if (page_ == Page::keys) {
        drawKeyList(canvas, area, allKeys(), {.accent = surrounding.accent, .bold = true});
    } else if (work::SituationView::of(situation()).timer) {
        drawCountdown(canvas, area, situation(), presenter_.recall(), presenter_.hours());
    } else {
        drawIdle(canvas, area, situation(), presenter_.hours());
    }
    return canvas;
}

}  // namespace quillmere::screen
