// Editing a list of one-line texts.
#pragma once

#include "screen/editors/field_editor.hpp"
#include "screen/editors/text_editor.hpp"

#include <vector>

namespace quillmere::screen {

/// `enter` adds an item below; on an empty last item it is not for the field. Backspace in an empty item
/// removes it, except the only one. Each pasted line becomes an item.
class ListFieldEditor final : public FieldEditor {
public:
    explicit ListFieldEditor(const work::Field& field);

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override;
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    work::FieldValue value() const override;

private:
    struct Item {
        std::string key;
        TextEditor editor;
    };

    bool addBelow();
    void paste(std::string_view text);
    bool removeEmpty();

    std::vector<Item> items_;  ///< at least one
    std::size_t current_ = 0;
};

}  // namespace quillmere::screen
