// Editing a text.
#pragma once

#include "screen/editors/field_editor.hpp"
#include "screen/editors/text_editor.hpp"

#include <string>
#include <string_view>

namespace quillmere::screen {

/// Draws a text with its cursor; an empty text as the hint.
void drawText(Canvas& canvas, const Area& area, const TextEditor& editor, bool isCurrent,
              std::string_view hint);

/// A pasted text as one line: tabs and line breaks become spaces, line breaks at the end are dropped.
std::string inOneLine(std::string text);

/// In a text of one line, `enter` is not for the field.
class TextFieldEditor final : public FieldEditor {
public:
    explicit TextFieldEditor(const work::Field& field);

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override { return editor_.rows(columns).size(); }
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    work::FieldValue value() const override { return editor_.text(); }

private:
    TextEditor editor_;
    bool isOneLine_;
    std::string hint_;
};

}  // namespace quillmere::screen
