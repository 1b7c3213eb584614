// Editing a form with keys, and drawing it.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/editors/field_editor.hpp"
#include "screen/keys/key.hpp"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmere::screen {

class FormEditor {
public:
    explicit FormEditor(std::shared_ptr<work::Form> form);

    const std::shared_ptr<work::Form>& form() const { return form_; }

    /// Gives the key to the current field, or moves to another field. Returns whether a value changed.
    bool take(const Key& key, Size window);

    /// Whether the current field is the last one and has no use for Enter.
    bool isOnLastLine() const;

    /// Makes a field the current one.
    void moveTo(std::string_view id);

    /// Draws the part of the form around the cursor, or the part that `scroll` has moved to.
    void draw(Canvas& canvas, const Area& area, Look look) const;

    /// Scrolls by the rows that `draw` shows in this area. The next key of the form moves back to the cursor.
    void scroll(bool down, const Area& area);

    /// Whether a part of the form is out of view in this area.
    bool scrolls(const Area& area) const;

private:
    /// All fields at full height, to be shown in an area.
    Canvas fieldsFor(const Area& area, Charset charset, Look look) const;
    std::size_t firstRowShown(const Canvas& fields, std::size_t shown) const;

    std::shared_ptr<work::Form> form_;
    std::vector<std::unique_ptr<FieldEditor>> editors_;  ///< one a field, in order
    std::size_t current_ = 0;
    std::optional<std::size_t> scrolledTo_;
};

}  // namespace quillmere::screen
