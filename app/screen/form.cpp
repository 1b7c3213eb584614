#include "screen/form.hpp"

#include "screen/flow.hpp"
#include "screen/layout.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/base/fatal_error.hpp>

#include <algorithm>

namespace quillmere::screen {
namespace {

// Of a change, in drafts.
constexpr const char* beginningName = "began";
constexpr const char* valueName = "value";

constexpr std::size_t markColumns = 2;
constexpr std::size_t questionColumns = 42;
constexpr std::size_t leastWideColumns = 72;

/// Where questions and fields stand: side by side where there is room, otherwise one below the other.
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

std::size_t rowsOfField(const Field& field, const FormGrid& grid)
{
    const std::size_t question = linesOf(field.question(), grid.questionWidth).size();
    const std::size_t answer = field.rows(grid.fieldWidth);
    return grid.isWide ? std::max(question, answer) : question + answer;
}

}  // namespace

void Form::add(std::unique_ptr<Field> field)
{
    nlohmann::json beginning = field->value();
    rows_.push_back({std::exchange(nextHeading_, {}), std::move(field), std::move(beginning)});
}

std::optional<std::size_t> Form::indexOf(std::string_view id) const
{
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        if (rows_[index].field->id() == id) {
            return index;
        }
    }
    return std::nullopt;
}

std::size_t Form::indexOfPresent(std::string_view id) const
{
    if (const std::optional<std::size_t> index = indexOf(id)) {
        return *index;
    }
    fatalError("quillmere: a form is asked for a field that it does not have");
}

bool Form::has(std::string_view id) const { return indexOf(id).has_value(); }

const Field& Form::field(std::string_view id) const { return *rows_[indexOfPresent(id)].field; }

std::string Form::text(std::string_view id) const { return field(id).value().get<std::string>(); }

void Form::moveTo(std::string_view id)
{
    current_ = indexOfPresent(id);
    scrolledTo_.reset();
}

bool Form::take(const Key& key, Size window)
{
    Field& field = *rows_[current_].field;
    scrolledTo_.reset();
    const std::size_t columns = window.columns - 2 * marginFor(familyFor(window));
    if (const Effect effect = field.take(key, gridFor(columns).fieldWidth); effect != Effect::notForIt) {
        isTouched_ = isTouched_ || effect == Effect::changed;
        return effect == Effect::changed;
    }
    switch (key.kind) {
        case Key::Kind::enter:
        case Key::Kind::down: current_ = std::min(current_ + 1, rows_.size() - 1); break;
        case Key::Kind::up: current_ -= current_ > 0 ? 1 : 0; break;
        case Key::Kind::tab: current_ = (current_ + 1) % rows_.size(); break;
        case Key::Kind::backTab: current_ = (current_ + rows_.size() - 1) % rows_.size(); break;
        default: break;
    }
    return false;
}

Area Form::drawReminder(Canvas& canvas, const Area& area) const
{
    Flow flow(canvas, area);
    if (!reminder_.empty()) {
        flow.line(reminder_, {.dim = true}, markColumns);
        flow.space(layout(familyFor(canvas.size())) == QuillmereWidgetLayout::compact
                       ? QuillmereDesign::Spacing::none
                       : QuillmereDesign::Spacing::regular);
    }
    return flow.rest();
}

Canvas Form::fieldsFor(const Area& area, Charset charset, Look look) const
{
    const FormGrid grid = gridFor(area.columns);
    std::size_t all = 0;
    for (const Row& row : rows_) {
        all += rowsOfField(*row.field, grid) + (row.heading.empty() ? 0 : 2);
    }
    // Spread out where that costs nothing.
    const std::size_t gap = all + rows_.size() <= area.rows || !grid.isWide ? 1 : 0;
    all += gap * (rows_.size() - 1);
    Canvas whole({.rows = all, .columns = area.columns}, charset);
    std::size_t top = 0;
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        const auto& [heading, field, beginning] = rows_[index];
        if (!heading.empty()) {
            whole.write({top + 1 - gap, 0}, heading, look);
            top += 2;
        }
        const bool isCurrent = index == current_;
        const std::size_t rows = rowsOfField(*field, grid);
        whole.write({top, 0}, isCurrent ? "▸" : " ", look);
        Flow question(whole, {top, markColumns, rows, grid.questionWidth});
        question.paragraph(field->question(), isCurrent ? look : Look{.dim = true});
        const Area place =
            grid.isWide ? Area{top, grid.fieldColumn, rows, grid.fieldWidth}
                        : Area{question.rest().row, grid.fieldColumn, question.rowsLeft(), grid.fieldWidth};
        field->draw(whole, place, isCurrent, look);
        top += rows + gap;
    }
    return whole;
}

std::size_t Form::firstRowShown(const Canvas& fields, std::size_t shown) const
{
    const std::size_t last = fields.size().rows - std::min(fields.size().rows, shown);
    // So that the cursor is about in the middle and no row is wasted.
    const std::size_t cursorRow = fields.cursor() ? fields.cursor()->row : 0;
    return std::min(scrolledTo_.value_or(cursorRow - std::min(cursorRow, shown / 2)), last);
}

void Form::draw(Canvas& canvas, const Area& whole, Look look) const
{
    const Area area = drawReminder(canvas, whole);
    const Canvas fields = fieldsFor(area, canvas.charset(), look);
    const std::size_t first = firstRowShown(fields, area.rows);
    canvas.copy(fields, first, area);
    drawMoreArrows(canvas, area, first > 0, first + area.rows < fields.size().rows);
}

void Form::scroll(bool down, Size window, const Area& whole)
{
    Canvas canvas(window);
    const Area area = drawReminder(canvas, whole);
    const Canvas fields = fieldsFor(area, Charset::unicode, {});
    const std::size_t first = firstRowShown(fields, area.rows);
    const std::size_t step = std::max<std::size_t>(area.rows, 2) - 1;
    scrolledTo_ = down ? first + step : first - std::min(first, step);
    scrolledTo_ = firstRowShown(fields, area.rows);
}

nlohmann::json Form::changes() const
{
    nlohmann::json changes = nlohmann::json::object();
    for (const Row& row : rows_) {
        if (nlohmann::json value = row.field->value(); value != row.beginning) {
            changes[row.field->id()] = {{beginningName, row.beginning}, {valueName, std::move(value)}};
        }
    }
    return changes;
}

BroughtBack Form::bringBack(const nlohmann::json& changes)
{
    BroughtBack result = BroughtBack::nothing;
    for (const Row& row : rows_) {
        const auto change = changes.find(row.field->id());
        if (change == changes.end() || !change->is_object() || !change->contains(valueName)) {
            continue;
        }
        row.field->setValue((*change)[valueName]);
        if (row.field->value() != row.beginning) {
            const bool isOver = change->value(beginningName, nlohmann::json()) != row.beginning;
            result =
                isOver || result == BroughtBack::overChanges ? BroughtBack::overChanges : BroughtBack::all;
            isTouched_ = true;
        }
    }
    return result;
}

}  // namespace quillmere::screen
