// What the live screen shows.
#include "screen/flow.hpp"
#include "screen/forms/forms.hpp"
#include "screen/layout.hpp"
#include "screen/screen.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

namespace quillmere::screen {

std::string Screen::questionCount() const
{
    const std::size_t count = state().openQuestions().size();
    return count == 0 ? "" : count == 1 ? "1 question" : std::to_string(count) + " questions";
}

std::vector<KeyHint> Screen::keys() const
{
    if (!isUsable()) {
        return {{"q", "quit"}};
    }
    if (holdsKeys_) {
        return {{"Esc", "go on"}, {"^C", "quit"}};
    }
    if (toConfirm_) {
        return {{"y", "yes"}, {"any other key", "no"}};
    }
    const std::string questions = questionCount().empty() ? "questions" : questionCount();
    std::vector<KeyHint> hints;
    if (const Form* const current = form()) {
        hints.push_back({"^S", std::string(savingFor(stepOf(*current, state())).label)});
        hints.push_back({"Tab", "next field"});
        hints.push_back(sideForm_ ? KeyHint{"Esc", "back"} : KeyHint{"^O", questions});
        hints.push_back({"PgDn", "scroll"});
        hints.push_back({"^C", "quit"});
        return hints;
    }
    if (page_ == Page::questions) {
        if (!state().openQuestions().empty()) {
            hints = {{"↑↓", "choose"}, {"Enter", "answer"}, {"PgDn", "scroll"}};
        }
        hints.push_back({"n", "ask one"});
        hints.push_back({"Esc", "back"});
    } else {
        for (const Action* const action : actionsFor(situation())) {
            hints.push_back({std::string(1, action->key), std::string(action->label)});
        }
        hints.push_back({"a", questions});
    }
    hints.push_back({"q", "quit"});
    return hints;
}

Frame Screen::frame() const
{
    Frame frame{.title = "Quillmere",
                .caption = {},
                .accent = QuillmereDesign::Accent::neutral,
                .note = {},
                .message = toConfirm_ ? std::string(toConfirm_->question) : message_,
                .keys = keys()};
    if (isUsable()) {
        const WidgetSnapshot snapshot = WidgetSnapshot::make(state(), situation().now);
        const auto timer = TimerSnapshot::derive(state(), situation().now);
        frame.title = title(snapshot.phase);
        const std::string caption = QuillmereDesign::caption(snapshot);
        // A phase that says it all by its name is not named twice.
        frame.caption = caption == frame.title ? "" : caption + (timer && timer->isPaused ? ", paused" : "");
        frame.accent = QuillmereDesign::accent(snapshot.phase);
        frame.note = questionCount();
    }
    return frame;
}

Area Screen::contentArea() const
{
    Canvas canvas(window_);
    return drawFrame(canvas, frame());
}

Canvas Screen::picture(Charset charset) const
{
    Canvas canvas(window_, charset);
    if (!isLargeEnough(window_)) {
        Flow(canvas, canvas.area())
            .paragraph("This window is too small: it takes 40 columns and 12 rows. q quits.");
        return canvas;
    }
    const Frame surrounding = frame();
    const Area area = drawFrame(canvas, surrounding);
    if (!isUsable()) {
        drawTrouble(canvas, area, files_.trouble().value_or(""));
    } else if (const Form* const current = form()) {
        current->draw(canvas, area, {.accent = surrounding.accent, .bold = true});
    } else if (page_ == Page::questions) {
        drawQuestions(canvas, area, situation(), chosenQuestion_, scrolledRows_);
    } else if (TimerSnapshot::derive(state(), situation().now)) {
        drawCountdown(canvas, area, situation());
    } else {
        drawIdle(canvas, area, situation());
    }
    return canvas;
}

}  // namespace quillmere::screen
