// The list of the block at hand and the finished blocks.
#pragma once

#include "screen/editors/text_editor.hpp"
#include "screen/pages/page.hpp"
#include "work/presenter.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::screen {

/// The newest first, a row each. A word narrows the list to the blocks in which it occurs.
class HistoryPage : public Page {
public:
    explicit HistoryPage(work::Presenter& presenter);

    bool takesText() const override { return isSearching_; }
    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;
    bool follow() override;

private:
    struct Row {
        Identifier block;
        std::string day;
        std::string name;
        std::string signs;
        std::string title;
    };

    /// What the rows depend on: when the state changed, and its blocks.
    struct Listed {
        Instant updatedAt;
        std::size_t finished;
        bool hasCurrent;

        static Listed of(const QuillmereState& state);
        friend bool operator==(const Listed&, const Listed&) = default;
    };

    PageStep take(const Key& key, const Room& room) override;
    void takeInSearch(const Key& key, const Room& room);
    /// Takes a key that chooses another row.
    void choose(const Key& key, const Room& room);
    void list();
    Row rowFor(const Block& block, std::string day, std::string name) const;
    void drawHeading(Canvas& canvas, const Area& area, Look heading) const;
    std::string nothingText() const;

    work::Presenter& presenter_;
    std::vector<Row> rows_;
    std::size_t chosen_ = 0;
    TextEditor searched_;
    bool isSearching_ = false;
    std::optional<Listed> listed_;
};

}  // namespace quillmere::screen
