#include "screen/editors/field_editor.hpp"

#include "screen/editors/choice_field_editor.hpp"
#include "screen/editors/list_field_editor.hpp"
#include "screen/editors/text_field_editor.hpp"

namespace quillmere::screen {

std::unique_ptr<FieldEditor> editorFor(const work::Field& field)
{
    switch (field.kind) {
        case work::FieldKind::line:
        case work::FieldKind::text: return std::make_unique<TextFieldEditor>(field);
        case work::FieldKind::choice: return std::make_unique<ChoiceFieldEditor>(field);
        case work::FieldKind::list: break;
    }
    return std::make_unique<ListFieldEditor>(field);
}

}  // namespace quillmere::screen
