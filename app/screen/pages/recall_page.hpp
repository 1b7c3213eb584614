// What helps at this moment of the work, whole.
#pragma once

#include "screen/pages/text_page.hpp"
#include "work/presenter.hpp"

namespace quillmere::screen {

class RecallPage : public TextPage {
public:
    explicit RecallPage(const work::Presenter& presenter) : presenter_(presenter) {}

    bool follow() override { return !presenter_.recall().empty(); }

private:
    Canvas text(std::size_t columns, Charset charset, Look heading) const override;

    const work::Presenter& presenter_;
};

}  // namespace quillmere::screen
