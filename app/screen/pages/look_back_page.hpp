// The look back on finished sessions, as `quillmere report` prints it.
#pragma once

#include "screen/pages/text_page.hpp"
#include "work/presenter.hpp"

#include <string>

namespace quillmere::screen {

/// Of this week, this month, or all time.
class LookBackPage : public TextPage {
public:
    explicit LookBackPage(const work::Presenter& presenter) : presenter_(presenter) {}

private:
    PageStep take(const Key& key, const Room& room) override;
    Canvas text(std::size_t columns, Charset charset, Look heading) const override;
    std::vector<KeyHint> ownKeys() const override;

    const work::Presenter& presenter_;
    std::string span_;  ///< as figures::spanFromText reads it; empty: all time
};

}  // namespace quillmere::screen
