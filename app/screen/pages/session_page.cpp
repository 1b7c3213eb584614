#include "screen/pages/session_page.hpp"

#include "screen/pages/recall_text.hpp"
#include "work/forms/forms.hpp"
#include "work/naming.hpp"
#include "work/recall/block_account.hpp"

#include <algorithm>

namespace quillmere::screen {

const WorkSession* SessionPage::session() const
{
    const Block* const block = work::blockWith(block_, presenter_.state());
    if (!block) {
        return nullptr;
    }
    const auto found = std::find_if(block->sessions.begin(), block->sessions.end(),
                                    [&](const WorkSession& session) { return session.id == session_; });
    return found == block->sessions.end() ? nullptr : &*found;
}

PageStep SessionPage::take(const Key& key, const Room& room)
{
    if (!types(key, "c")) {
        return TextPage::take(key, room);
    }
    const work::FormSubject correction = work::correctionOf(*session());
    if (work::isCurrent(correction, presenter_.state())) {
        presenter_.openCorrection(correction);
    }
    return {};
}

std::vector<KeyHint> SessionPage::ownKeys() const
{
    const bool isCorrectable = work::isCurrent(work::correctionOf(*session()), presenter_.state());
    return isCorrectable ? std::vector<KeyHint>{{"c", "correct"}} : std::vector<KeyHint>();
}

Canvas SessionPage::text(std::size_t columns, Charset charset, Look heading) const
{
    const base::SeenFrom here(presenter_.situation().now, presenter_.hours());
    const Block& block = *work::blockWith(block_, presenter_.state());
    return textOf({work::accountOf(*session(), block, here)}, columns, charset, heading).canvas;
}

}  // namespace quillmere::screen
