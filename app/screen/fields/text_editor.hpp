// A text being written, and the place in it where the next character goes.
#pragma once

#include "screen/fields/effect.hpp"
#include "screen/key.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

class TextEditor {
public:
    explicit TextEditor(std::string text = {}) : text_(std::move(text)), cursor_(text_.size()) {}

    const std::string& text() const { return text_; }
    /// In bytes from the beginning.
    std::size_t cursor() const { return cursor_; }

    /// Takes a key that is one for texts. Up and down go by the rows that the text takes
    /// in `columns`, and are not for the text where it has no such row. Neither is `enter`.
    Effect take(const Key& key, std::size_t columns);

    void insert(std::string_view text);

    /// A row as it is shown: bytes of the text, a line break left out.
    struct Row {
        std::size_t begin;
        std::size_t end;
    };

    /// The text in rows that leave a column free for the cursor; at least one. Spaces at the end of a row may
    /// stand outside.
    std::vector<Row> rows(std::size_t columns) const;

    /// The row that the cursor is in.
    std::size_t cursorRow(const std::vector<Row>& rows) const;

private:
    Effect erase(std::size_t begin, std::size_t end);
    bool moveByRows(std::size_t columns, bool down);

    std::string text_;
    std::size_t cursor_;
};

}  // namespace quillmere::screen
