#include "work/forms/form.hpp"

#include <quillmere/records/base/fatal_error.hpp>

#include <algorithm>
#include <utility>

namespace quillmere::work {
namespace {

bool isOption(const Field& field, const FieldValue& value)
{
    return std::any_of(field.options.begin(), field.options.end(),
                       [&](const Option& option) { return value == FieldValue(option.key); });
}

/// Whether a field of this kind can hold the value.
bool fits(const Field& field, const FieldValue& value)
{
    switch (field.kind) {
        case FieldKind::line:
        case FieldKind::text: return std::holds_alternative<std::string>(value);
        case FieldKind::choice: return isOption(field, value);
        case FieldKind::list: break;
    }
    const auto* const items = std::get_if<std::vector<ListItem>>(&value);
    return items && !items->empty();
}

}  // namespace

void Form::add(Field field)
{
    field.heading = std::exchange(nextHeading_, {});
    if (field.kind == FieldKind::choice && !isOption(field, field.value)) {
        field.value = std::string();
    }
    if (field.kind == FieldKind::list && !fits(field, field.value)) {
        field.value = std::vector<ListItem>(1);
    }
    field.beginning = field.value;
    fields_.push_back(std::move(field));
}

std::optional<std::size_t> Form::indexOf(std::string_view id) const
{
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        if (fields_[index].id == id) {
            return index;
        }
    }
    return std::nullopt;
}

const Field& Form::field(std::string_view id) const
{
    if (const std::optional<std::size_t> index = indexOf(id)) {
        return fields_[*index];
    }
    fatalError("quillmere: a form is asked for a field that it does not have");
}

const std::string& Form::text(std::string_view id) const { return std::get<std::string>(field(id).value); }

void Form::setValue(std::size_t index, FieldValue value)
{
    fields_[index].value = std::move(value);
    isTouched_ = true;
}

std::vector<FieldChange> Form::changes() const
{
    std::vector<FieldChange> changes;
    for (const Field& field : fields_) {
        if (field.value != field.beginning) {
            changes.push_back({field.id, field.beginning, field.value});
        }
    }
    return changes;
}

BroughtBack Form::bringBack(const std::vector<FieldChange>& changes)
{
    BroughtBack result = BroughtBack::nothing;
    for (const FieldChange& change : changes) {
        const std::optional<std::size_t> index = indexOf(change.id);
        if (!index || !fits(fields_[*index], change.value)) {
            continue;
        }
        Field& field = fields_[*index];
        field.value = change.value;
        if (field.value != field.beginning) {
            const bool isOver = change.beginning != field.beginning;
            result =
                isOver || result == BroughtBack::overChanges ? BroughtBack::overChanges : BroughtBack::all;
            isTouched_ = true;
        }
    }
    return result;
}

}  // namespace quillmere::work
