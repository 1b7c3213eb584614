#include "screen/pages/block_page.hpp"

#include "screen/pages/session_page.hpp"
#include "work/forms/forms.hpp"
#include "work/naming.hpp"
#include "work/recall/block_account.hpp"

#include <algorithm>

namespace quillmere::screen {

const Block& BlockPage::block() const { return *work::blockWith(id_, presenter_.state()); }

bool BlockPage::follow()
{
    if (!work::blockWith(id_, presenter_.state())) {
        return false;
    }
    if (session_ && *session_ >= block().sessions.size()) {
        session_.reset();
    }
    return true;
}

RecallText BlockPage::text(const Area& area, Charset charset, Look heading) const
{
    const work::Recall account = work::accountOf(block(), {presenter_.situation().now, presenter_.hours()});
    // The first passage is of the block, and the sessions follow.
    return textOf(account, ScrolledText::columnsIn(area), charset, heading, Marks::possible,
                  session_ ? std::optional(*session_ + 1) : std::nullopt);
}

void BlockPage::choose(bool next, const Area& area)
{
    const std::size_t count = block().sessions.size();
    if (next) {
        session_ = session_ ? std::min(*session_ + 1, count - 1) : 0;
    } else if (session_) {
        session_ = *session_ == 0 ? std::nullopt : std::optional(*session_ - 1);
    }
    if (session_) {
        scrolled_.moveTo(text(area, Charset::unicode, {}).rowsOfHeadings[*session_ + 1]);
    } else {
        scrolled_.toTop();
    }
}

work::FormSubject BlockPage::correction() const
{
    return session_ ? work::correctionOf(block().sessions[*session_]) : work::correctionOf(block());
}

PageStep BlockPage::take(const Key& key, const Room& room)
{
    const bool isArrow = key.kind == Key::Kind::up || key.kind == Key::Kind::down;
    if (isArrow && !block().sessions.empty()) {
        choose(key.kind == Key::Kind::down, room.area);
    } else if (key.kind == Key::Kind::enter && session_) {
        return {.opened = std::make_unique<SessionPage>(presenter_, id_, block().sessions[*session_].id)};
    } else if (types(key, "c") && work::isCurrent(correction(), presenter_.state())) {
        presenter_.openCorrection(correction());
    } else if (types(key, "d")) {
        presenter_.requestDeletion(id_);
    } else {
        scrolled_.take(key, text(room.area, Charset::unicode, {}).canvas.size().rows, room.area);
    }
    return {};
}

std::vector<KeyHint> BlockPage::keys(bool scrolls) const
{
    std::vector<KeyHint> hints;
    if (!block().sessions.empty()) {
        hints.push_back({"↑↓", "choose a session"});
    }
    if (session_) {
        hints.push_back({"Enter", "open"});
    }
    if (scrolls) {
        hints.push_back({"PgDn", "scroll"});
    }
    if (work::isCurrent(correction(), presenter_.state())) {
        hints.push_back({"c", session_ ? "correct the session" : "correct the block"});
    }
    if (work::finishedBlockWith(id_, presenter_.state())) {
        hints.push_back({"d", "delete"});
    }
    hints.push_back({"Esc", "back"});
    hints.push_back({"q", "quit"});
    return hints;
}

bool BlockPage::scrolls(const Room& room) const
{
    return text(room.area, Charset::unicode, {}).canvas.size().rows > room.area.rows;
}

void BlockPage::draw(Canvas& canvas, const Area& area, Look heading) const
{
    scrolled_.draw(canvas, area, text(area, canvas.charset(), heading).canvas);
}

}  // namespace quillmere::screen
