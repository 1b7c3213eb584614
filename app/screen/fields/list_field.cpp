#include "screen/fields/list_field.hpp"

#include "screen/fields/text_field.hpp"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

namespace quillmere::screen {
namespace {

constexpr std::size_t bulletColumns = 2;

}  // namespace

ListField::ListField(std::string id, std::string question, std::vector<Item> items)
    : Field(std::move(id), std::move(question)), items_(std::move(items))
{
    if (items_.empty()) {
        items_.emplace_back();
    }
}

Effect ListField::take(const Key& key, std::size_t columns)
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

void ListField::paste(std::string_view text)
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

bool ListField::addBelow()
{
    if (items_[current_].editor.text().empty() && current_ + 1 == items_.size()) {
        return false;
    }
    ++current_;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(current_), Item());
    return true;
}

bool ListField::removeEmpty()
{
    if (!items_[current_].editor.text().empty() || items_.size() == 1) {
        return false;
    }
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(current_));
    current_ -= current_ > 0 ? 1 : 0;
    return true;
}

std::size_t ListField::rows(std::size_t columns) const
{
    std::size_t rows = 0;
    for (const Item& item : items_) {
        rows += item.editor.rows(columns - bulletColumns).size();
    }
    return rows;
}

void ListField::draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const
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

nlohmann::json ListField::value() const
{
    nlohmann::json list = nlohmann::json::array();
    for (const Item& item : items_) {
        list.push_back({{"key", item.key}, {"text", item.editor.text()}});
    }
    return list;
}

void ListField::setValue(const nlohmann::json& value)
{
    std::vector<Item> items;
    const auto isText = [](const nlohmann::json& item, const char* name) {
        return item.is_object() && item.contains(name) && item[name].is_string();
    };
    for (const nlohmann::json& item : value) {
        if (!isText(item, "key") || !isText(item, "text")) {
            return;
        }
        items.push_back({item["key"], TextEditor(item["text"])});
    }
    if (!items.empty()) {
        items_ = std::move(items);
        current_ = 0;
    }
}

}  // namespace quillmere::screen
