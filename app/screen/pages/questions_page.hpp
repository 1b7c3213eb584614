// The page of the open questions.
#pragma once

#include "screen/pages/page.hpp"
#include "screen/pages/scrolled_text.hpp"
#include "work/presenter.hpp"

#include <cstddef>

namespace quillmere::screen {

/// Shows the chosen question in full.
class QuestionsPage : public Page {
public:
    explicit QuestionsPage(work::Presenter& presenter) : presenter_(presenter) {}

    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;
    bool follow() override;

private:
    PageStep take(const Key& key, const Room& room) override;
    std::vector<AgentQuestion> questions() const { return presenter_.state().openQuestions(); }
    void choose(std::size_t question);

    /// The rows that must be in view at some time: those up to the end of the chosen question.
    std::size_t rowsToRead(Size window, const Area& area) const;
    Canvas text(std::size_t rows, Size window, const Area& area, Charset charset) const;

    work::Presenter& presenter_;
    std::size_t chosen_ = 0;
    ScrolledText scrolled_;
};

}  // namespace quillmere::screen
