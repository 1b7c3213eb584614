// The page of the blocks and templates that a block can be planned after.
#pragma once

#include "screen/pages/page.hpp"
#include "work/presenter.hpp"

#include <cstddef>

namespace quillmere::screen {

/// The chosen model is marked and in view.
class ModelsPage : public Page {
public:
    explicit ModelsPage(work::Presenter& presenter) : presenter_(presenter) {}

    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room&) const override { return false; }
    void draw(Canvas& canvas, const Area& area, Look heading) const override;
    bool follow() override { return !presenter_.models().empty(); }

private:
    PageStep take(const Key& key, const Room& room) override;

    work::Presenter& presenter_;
    std::size_t chosen_ = 0;
};

}  // namespace quillmere::screen
