#include "screen/editors/list_field_editor.hpp"

#include "screen/editors/text_field_editor.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillmere::screen {
namespace {

constexpr std::size_t bulletColumns = 2;

}  // namespace

ListFieldEditor::ListFieldEditor(const work::Field& field)
{
    for (const work::ListItem& item : std::get<std::vector<work::ListItem>>(field.value)) {
        items_.push_back({item.key, TextEditor(item.text)});
    }
}

Effect ListFieldEditor::take(const Key& key, std::size_t columns)
{
    if (key.kind == Key::Kind::enter) {
        return addBelow() ? Effect::changed : Effect::notForIt;
    }
    if (key.kind == Key::Kind::paste) {
        paste(key.text);
        return Effect::changed;
    }
    if (key.kind == Key::Kind::backspace && removeEmpty()) {
        return Effect::changed;
    }
    const Effect effect = items_[current_].editor.take(key, columns - bulletColumns);
    if (effect != Effect::notForIt) {
        return effect;
    }
    if (key.kind == Key::Kind::up && current_ > 0) {
        --current_;
        return Effect::unchanged;
    }
    if (key.kind == Key::Kind::down && current_ + 1 < items_.size()) {
        ++current_;
        return Effect::unchanged;
    }
    return Effect::notForIt;
}

void ListFieldEditor::paste(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (line.find_first_not_of(" \t") != std::string_view::npos) {
            lines.push_back(inOneLine(std::string(line)));
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    if (lines.empty()) {
        return;
    }
    items_[current_].editor.insert(lines.front());
    std::vector<Item> below;
    for (std::size_t index = 1; index < lines.size(); ++index) {
        below.push_back({{}, TextEditor(std::move(lines[index]))});
    }
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(current_ + 1),
                  std::make_move_iterator(below.begin()), std::make_move_iterator(below.end()));
    current_ += below.size();
}

bool ListFieldEditor::addBelow()
{
    if (items_[current_].editor.text().empty() && current_ + 1 == items_.size()) {
        return false;
    }
    ++current_;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(current_), Item());
    return true;
}

bool ListFieldEditor::removeEmpty()
{
    if (!items_[current_].editor.text().empty() || items_.size() == 1) {
        return false;
    }
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(current_));
    current_ -= current_ > 0 ? 1 : 0;
    return true;
}

std::size_t ListFieldEditor::rows(std::size_t columns) const
{
    std::size_t rows = 0;
    for (const Item& item : items_) {
        rows += item.editor.rows(columns - bulletColumns).size();
    }
    return rows;
}

void ListFieldEditor::draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const
{
    Area left = area;
    for (std::size_t index = 0; index < items_.size(); ++index) {
        const TextEditor& editor = items_[index].editor;
        const std::size_t columns = area.columns - bulletColumns;
        canvas.write({left.row, left.column}, "•", isCurrent && index == current_ ? look : Look{.dim = true});
        drawText(canvas, {left.row, left.column + bulletColumns, left.rows, columns}, editor,
                 isCurrent && index == current_, {});
        const std::size_t taken = std::min(editor.rows(columns).size(), left.rows);
        left.row += taken;
        left.rows -= taken;
    }
}

work::FieldValue ListFieldEditor::value() const
{
    std::vector<work::ListItem> items;
    for (const Item& item : items_) {
        items.push_back({item.key, item.editor.text()});
    }
    return items;
}

}  // namespace quillmere::screen
