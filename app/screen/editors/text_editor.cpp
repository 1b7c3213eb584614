#include "screen/editors/text_editor.hpp"

#include "screen/canvas/characters.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::string_view betweenWords = " \t\n";

/// The beginning of the word before an offset.
std::size_t wordBefore(std::string_view text, std::size_t offset)
{
    const std::size_t last = text.substr(0, offset).find_last_not_of(betweenWords);
    const std::size_t gap =
        last == std::string_view::npos ? last : text.substr(0, last).find_last_of(betweenWords);
    return gap == std::string_view::npos ? 0 : gap + 1;
}

/// The end of the word after an offset.
std::size_t wordAfter(std::string_view text, std::size_t offset)
{
    const std::size_t first = text.find_first_not_of(betweenWords, offset);
    return first == std::string_view::npos ? text.size()
                                           : std::min(text.find_first_of(betweenWords, first), text.size());
}

}  // namespace

void TextEditor::insert(std::string_view text)
{
    text_.insert(cursor_, text);
    cursor_ += text.size();
}

Effect TextEditor::erase(std::size_t begin, std::size_t end)
{
    text_.erase(begin, end - begin);
    cursor_ = begin;
    return begin == end ? Effect::unchanged : Effect::changed;
}

Effect TextEditor::takeControl(std::string_view letter, std::size_t columns)
{
    // The letters that shells and other line editors have for these.
    if (letter == "a") {
        return take({Key::Kind::home}, columns);
    }
    if (letter == "e") {
        return take({Key::Kind::end}, columns);
    }
    if (letter == "w") {
        return erase(wordBefore(text_, cursor_), cursor_);
    }
    return letter == "u" ? erase(0, text_.size()) : Effect::notForIt;
}

Effect TextEditor::take(const Key& key, std::size_t columns)
{
    const auto moveTo = [this](std::size_t offset) {
        cursor_ = offset;
        return Effect::unchanged;
    };
    const auto row = [&] {
        const std::vector<Row> all = rows(columns);
        return all[cursorRow(all)];
    };
    switch (key.kind) {
        case Key::Kind::character: insert(key.text); return Effect::changed;
        case Key::Kind::backspace: return erase(beforeCharacter(text_, cursor_), cursor_);
        case Key::Kind::remove: return erase(cursor_, afterCharacter(text_, cursor_));
        case Key::Kind::left: return moveTo(beforeCharacter(text_, cursor_));
        case Key::Kind::right: return moveTo(afterCharacter(text_, cursor_));
        case Key::Kind::home: return moveTo(row().begin);
        case Key::Kind::end: return moveTo(row().end);
        case Key::Kind::wordLeft: return moveTo(wordBefore(text_, cursor_));
        case Key::Kind::wordRight: return moveTo(wordAfter(text_, cursor_));
        case Key::Kind::up: return moveByRows(columns, false) ? Effect::unchanged : Effect::notForIt;
        case Key::Kind::down: return moveByRows(columns, true) ? Effect::unchanged : Effect::notForIt;
        case Key::Kind::control: return takeControl(key.text, columns);
        case Key::Kind::paste:
        case Key::Kind::enter:
        case Key::Kind::tab:
        case Key::Kind::backTab:
        case Key::Kind::pageUp:
        case Key::Kind::pageDown:
        case Key::Kind::escape:
        case Key::Kind::click: break;
    }
    return Effect::notForIt;
}

std::vector<TextEditor::Row> TextEditor::rows(std::size_t columns) const
{
    // Every row has room for a wide character and the cursor.
    const std::size_t most = std::max<std::size_t>(columns, 3) - 1;
    std::vector<Row> rows;
    std::size_t begin = 0;
    std::size_t wordBegin = 0;  // of the last word in the row; `begin` for the first word
    std::size_t taken = 0;
    for (std::size_t offset = 0; offset < text_.size();) {
        const std::size_t next = afterCharacter(text_, offset);
        if (text_[offset] == '\n') {
            rows.push_back({begin, offset});
            begin = wordBegin = next;
            taken = 0;
            offset = next;
            continue;
        }
        const bool isSpace = text_[offset] == ' ';
        const std::size_t width = shownColumns(std::string_view(text_).substr(offset, next - offset));
        if (!isSpace && taken + width > most) {
            const std::size_t end = wordBegin > begin ? wordBegin : offset;
            rows.push_back({begin, end});
            begin = wordBegin = end;
            taken = shownColumns(std::string_view(text_).substr(begin, offset - begin));
        }
        taken += width;
        offset = next;
        wordBegin = isSpace ? offset : wordBegin;
    }
    rows.push_back({begin, text_.size()});
    return rows;
}

std::size_t TextEditor::cursorRow(const std::vector<Row>& rows) const
{
    // Between two rows the cursor stands at the beginning of the second.
    std::size_t row = rows.size() - 1;
    while (rows[row].begin > cursor_) {
        --row;
    }
    return row;
}

bool TextEditor::moveByRows(std::size_t columns, bool down)
{
    const std::vector<Row> all = rows(columns);
    const std::size_t row = cursorRow(all);
    if (down ? row + 1 == all.size() : row == 0) {
        return false;
    }
    const std::string_view text = text_;
    const std::size_t column = shownColumns(text.substr(all[row].begin, cursor_ - all[row].begin));
    const Row target = all[down ? row + 1 : row - 1];
    cursor_ = target.begin;
    while (cursor_ < target.end) {
        const std::size_t next = afterCharacter(text, cursor_);
        if (shownColumns(text.substr(target.begin, next - target.begin)) > column) {
            break;
        }
        cursor_ = next;
    }
    return true;
}

}  // namespace quillmere::screen
