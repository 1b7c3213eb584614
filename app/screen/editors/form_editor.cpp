#include "screen/editors/form_editor.hpp"
#include "base/text/columns.hpp"

#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::screen {
namespace {

constexpr std::size_t markColumns = 2;
constexpr std::size_t questionColumns = 42;
constexpr std::size_t leastWideColumns = 72;

/// The columns of questions and fields: side by side in a wide area, otherwise each field below its question.
struct FormGrid {
    bool isWide;
    std::size_t questionWidth;
    std::size_t fieldColumn;
    std::size_t fieldWidth;
};

FormGrid gridFor(std::size_t columns)
{
    const bool isWide = columns >= leastWideColumns;
    const std::size_t fieldColumn = isWide ? questionColumns : markColumns;
    return {.isWide = isWide,
            .questionWidth = (isWide ? questionColumns : columns) - markColumns - (isWide ? 2 : 0),
            .fieldColumn = fieldColumn,
            .fieldWidth = columns - fieldColumn - 1};
}

std::size_t rowsOfField(const work::Field& field, const FieldEditor& editor, const FormGrid& grid)
{
    const std::size_t question = base::linesWithin(field.question, grid.questionWidth).size();
    const std::size_t answer = editor.rows(grid.fieldWidth);
    return grid.isWide ? std::max(question, answer) : question + answer;
}

}  // namespace

FormEditor::FormEditor(std::shared_ptr<work::Form> form) : form_(std::move(form))
{
    for (const work::Field& field : form_->fields()) {
        editors_.push_back(editorFor(field));
    }
}

void FormEditor::moveTo(std::string_view id)
{
    current_ = form_->indexOf(id).value_or(current_);
    scrolledTo_.reset();
}

bool FormEditor::isOnLastLine() const
{
    const work::FieldKind kind = form_->fields()[current_].kind;
    return current_ + 1 == editors_.size() &&
           (kind == work::FieldKind::line || kind == work::FieldKind::choice);
}

bool FormEditor::take(const Key& key, Size window)
{
    FieldEditor& editor = *editors_[current_];
    scrolledTo_.reset();
    const std::size_t columns = window.columns - 2 * marginFor(window);
    const Effect effect = editor.take(key, gridFor(columns).fieldWidth);
    if (effect == Effect::changed) {
        form_->setValue(current_, editor.value());
    }
    if (effect != Effect::notForIt) {
        return effect == Effect::changed;
    }
    switch (key.kind) {
        case Key::Kind::enter:
        case Key::Kind::down: current_ = std::min(current_ + 1, editors_.size() - 1); break;
        case Key::Kind::up: current_ -= current_ > 0 ? 1 : 0; break;
        case Key::Kind::tab: current_ = (current_ + 1) % editors_.size(); break;
        case Key::Kind::backTab: current_ = (current_ + editors_.size() - 1) % editors_.size(); break;
        default: break;
    }
    return false;
}

Canvas FormEditor::fieldsFor(const Area& area, Charset charset, Look look) const
{
    const FormGrid grid = gridFor(area.columns);
    const std::vector<work::Field>& fields = form_->fields();
    std::size_t all = 0;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        all += rowsOfField(fields[index], *editors_[index], grid) + (fields[index].heading.empty() ? 0 : 2);
    }
    // Empty rows between the fields where the form still fits into the area.
    const std::size_t gap = all + fields.size() <= area.rows || !grid.isWide ? 1 : 0;
    all += gap * (fields.size() - 1);
    Canvas whole({.rows = all, .columns = area.columns}, charset);
    std::size_t top = 0;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        const work::Field& field = fields[index];
        if (!field.heading.empty()) {
            whole.write({top + 1 - gap, 0}, field.heading, look);
            top += 2;
        }
        const bool isCurrent = index == current_;
        const std::size_t rows = rowsOfField(field, *editors_[index], grid);
        whole.write({top, 0}, isCurrent ? "▸" : " ", look);
        Flow question(whole, {top, markColumns, rows, grid.questionWidth});
        question.paragraph(field.question, isCurrent ? look : Look{.dim = true});
        const Area place =
            grid.isWide ? Area{top, grid.fieldColumn, rows, grid.fieldWidth}
                        : Area{question.rest().row, grid.fieldColumn, question.rowsLeft(), grid.fieldWidth};
        editors_[index]->draw(whole, place, isCurrent, look);
        top += rows + gap;
    }
    return whole;
}

std::size_t FormEditor::firstRowShown(const Canvas& fields, std::size_t shown) const
{
    const std::size_t last = fields.size().rows - std::min(fields.size().rows, shown);
    // The cursor is about in the middle, and no row stays empty below the last field.
    const std::size_t cursorRow = fields.cursor() ? fields.cursor()->row : 0;
    return std::min(scrolledTo_.value_or(cursorRow - std::min(cursorRow, shown / 2)), last);
}

void FormEditor::draw(Canvas& canvas, const Area& area, Look look) const
{
    const Canvas fields = fieldsFor(area, canvas.charset(), look);
    const std::size_t first = firstRowShown(fields, area.rows);
    canvas.copy(fields, first, area);
    drawMoreArrows(canvas, area, first > 0, first + area.rows < fields.size().rows);
}

bool FormEditor::scrolls(const Area& area) const
{
    return fieldsFor(area, Charset::unicode, {}).size().rows > area.rows;
}

void FormEditor::scroll(bool down, const Area& area)
{
    const Canvas fields = fieldsFor(area, Charset::unicode, {});
    const std::size_t first = firstRowShown(fields, area.rows);
    const std::size_t step = std::max<std::size_t>(area.rows, 2) - 1;
    scrolledTo_ = down ? first + step : first - std::min(first, step);
    scrolledTo_ = firstRowShown(fields, area.rows);
}

}  // namespace quillmere::screen
