// A text with a cursor.
#pragma once

#include "screen/editors/effect.hpp"
#include "screen/keys/key.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

class TextEditor {
public:
    explicit TextEditor(std::string text = {}) : text_(std::move(text)), cursor_(text_.size()) {}

    const std::string& text() const { return text_; }
    /// The cursor's offset in bytes.
    std::size_t cursor() const { return cursor_; }

    /// Takes a key. Up and down move between the rows of the text in `columns`, and are not for the editor in
    /// the first and the last row. `enter` is never for it.
    Effect take(const Key& key, std::size_t columns);

    void insert(std::string_view text);

    /// A row on the screen: a range of bytes without the line break.
    struct Row {
        std::size_t begin;
        std::size_t end;
    };

    /// Wraps the text into rows with a free column for the cursor; there is at least one row. Spaces at the
    /// end of a row may stand outside of it.
    std::vector<Row> rows(std::size_t columns) const;

    /// The row of the cursor.
    std::size_t cursorRow(const std::vector<Row>& rows) const;

private:
    Effect takeControl(std::string_view letter, std::size_t columns);
    Effect erase(std::size_t begin, std::size_t end);
    bool moveByRows(std::size_t columns, bool down);

    std::string text_;
    std::size_t cursor_;
};

}  // namespace quillmere::screen
