// The page of all keys of the work.
#pragma once

#include "screen/pages/page.hpp"
#include "screen/pages/scrolled_text.hpp"
#include "work/presenter.hpp"

namespace quillmere::screen {

/// One key a row. The keys work here too.
class KeysPage : public Page {
public:
    explicit KeysPage(const work::Presenter& presenter) : presenter_(presenter) {}

    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;

private:
    PageStep take(const Key& key, const Room& room) override;

    const work::Presenter& presenter_;
    ScrolledText scrolled_;
};

}  // namespace quillmere::screen
