// The list of the block at hand and the finished blocks.
#pragma once

#include "screen/editors/text_editor.hpp"
#include "screen/pages/history_list.hpp"
#include "screen/pages/page.hpp"
#include "work/presenter.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace quillmere::screen {

/// The newest first, a row each. A word narrows the list to the blocks in which it occurs.
class HistoryPage : public Page {
public:
    static constexpr base::Reach reach = base::Reach::years;

    explicit HistoryPage(work::Presenter& presenter);

    bool takesText() const override { return isSearching_; }
    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;
    bool follow() override;

private:
    /// To the whole list.
    bool goesBack() override;
    PageStep take(const Key& key, const Room& room) override;
    void takeInSearch(const Key& key, const Room& room);
    /// Takes a key that chooses another row.
    void choose(const Key& key, const Room& room);
    /// Lists anew, and keeps the chosen block.
    void list();
    const std::vector<HistoryRow>& rows() const { return list_.rows(); }
    void endSearch();
    void drawHeading(Canvas& canvas, const Area& area, Look heading) const;
    std::string nothingText() const;

    work::Presenter& presenter_;
    HistoryList list_;
    std::size_t chosen_ = 0;
    TextEditor searched_;
    bool isSearching_ = false;
};

}  // namespace quillmere::screen
