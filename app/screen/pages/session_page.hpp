// A session whole: its times, its plan, its review.
#pragma once

#include "screen/pages/text_page.hpp"
#include "work/presenter.hpp"

namespace quillmere::screen {

class SessionPage : public TextPage {
public:
    SessionPage(work::Presenter& presenter, const Identifier& block, const Identifier& session)
        : presenter_(presenter), block_(block), session_(session)
    {
    }

    /// The block may have been deleted.
    bool follow() override { return session() != nullptr; }

private:
    PageStep take(const Key& key, const Room& room) override;
    std::vector<KeyHint> ownKeys() const override;
    Canvas text(std::size_t columns, Charset charset, Look heading) const override;
    const WorkSession* session() const;

    work::Presenter& presenter_;
    Identifier block_;
    Identifier session_;
};

}  // namespace quillmere::screen
