#include "screen/editors/text_field_editor.hpp"

#include "screen/canvas/characters.hpp"

#include <algorithm>

namespace quillmere::screen {

void drawText(Canvas& canvas, const Area& area, const TextEditor& editor, bool isCurrent,
              std::string_view hint)
{
    const std::string_view text = editor.text();
    const std::vector<TextEditor::Row> rows = editor.rows(area.columns);
    for (std::size_t row = 0; row < rows.size() && row < area.rows; ++row) {
        canvas.write({area.row + row, area.column},
                     text.substr(rows[row].begin, rows[row].end - rows[row].begin), {}, area.columns);
    }
    if (text.empty()) {
        canvas.write({area.row, area.column}, hint.empty() ? "·" : hint, {.dim = true}, area.columns);
    }
    if (isCurrent) {
        const std::size_t row = editor.cursorRow(rows);
        const std::size_t begin = rows[row].begin;
        canvas.setCursor(
            {area.row + row, area.column + std::min(shownColumns(text.substr(begin, editor.cursor() - begin)),
                                                    area.columns - 1)});
    }
}

std::string inOneLine(std::string text)
{
    text.erase(text.find_last_not_of('\n') + 1);
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character == '\n' || character == '\t'; }, ' ');
    return text;
}

TextFieldEditor::TextFieldEditor(const work::Field& field)
    : editor_(std::get<std::string>(field.value)),
      isOneLine_(field.kind == work::FieldKind::line),
      hint_(field.hint)
{
}

Effect TextFieldEditor::take(const Key& key, std::size_t columns)
{
    if (key.kind == Key::Kind::paste) {
        editor_.insert(isOneLine_ ? inOneLine(key.text) : key.text);
        return Effect::changed;
    }
    if (key.kind == Key::Kind::enter && !isOneLine_) {
        editor_.insert("\n");
        return Effect::changed;
    }
    return editor_.take(key, columns);
}

void TextFieldEditor::draw(Canvas& canvas, const Area& area, bool isCurrent, Look) const
{
    drawText(canvas, area, editor_, isCurrent, hint_);
}

}  // namespace quillmere::screen
