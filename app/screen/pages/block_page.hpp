// A block whole: its purpose, its sessions, the look back on it.
#pragma once

#include "screen/pages/page.hpp"
#include "screen/pages/recall_text.hpp"
#include "screen/pages/scrolled_text.hpp"
#include "work/presenter.hpp"

#include <cstddef>
#include <optional>

namespace quillmere::screen {

/// One of the sessions can be chosen, and opened.
class BlockPage : public Page {
public:
    BlockPage(work::Presenter& presenter, const Identifier& block) : presenter_(presenter), id_(block) {}

    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;
    /// The block may have been deleted.
    bool follow() override;

private:
    PageStep take(const Key& key, const Room& room) override;
    /// Of the block, which must exist.
    const Block& block() const;
    /// The form that corrects the chosen session, or the block while none is chosen.
    work::FormSubject correction() const;
    /// Chooses the session before or after.
    void choose(bool next, const Area& area);
    RecallText text(const Area& area, Charset charset, Look heading) const;

    work::Presenter& presenter_;
    Identifier id_;
    std::optional<std::size_t> session_;  ///< the chosen one, by index
    ScrolledText scrolled_;
};

}  // namespace quillmere::screen
