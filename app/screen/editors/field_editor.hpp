// Editing one field of a form with keys.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/editors/effect.hpp"
#include "screen/keys/key.hpp"
#include "work/forms/form.hpp"

#include <memory>

namespace quillmere::screen {

/// Holds the value while it is edited, and the cursor.
class FieldEditor {
public:
    FieldEditor() = default;
    FieldEditor(const FieldEditor&) = delete;
    FieldEditor& operator=(const FieldEditor&) = delete;
    virtual ~FieldEditor() = default;

    /// Takes a key; the field is `columns` wide.
    virtual Effect take(const Key& key, std::size_t columns) = 0;

    /// The number of rows needed in a width.
    virtual std::size_t rows(std::size_t columns) const = 0;

    /// Draws into an area of that many rows; with the cursor when the field is the current one.
    virtual void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const = 0;

    virtual work::FieldValue value() const = 0;
};

/// The editor for the kind of the field, with its value.
std::unique_ptr<FieldEditor> editorFor(const work::Field& field);

}  // namespace quillmere::screen
