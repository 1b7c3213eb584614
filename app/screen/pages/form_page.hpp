// A form, and what helps to fill it in.
#pragma once

#include "screen/editors/form_editor.hpp"
#include "work/recall/passage.hpp"

#include <vector>

namespace quillmere::screen {

/// The form's reminder stands above the fields. The recall stands beside them in a wide window; in another
/// one a few facts of it follow the reminder, if there are rows enough.
class FormPage {
public:
    /// In an area of a window. `editor` must outlive the page.
    FormPage(const FormEditor& editor, const work::Recall& recall, Size window, const Area& area);

    /// The area of the fields.
    const Area& fields() const { return fields_; }

    void draw(Canvas& canvas, Look heading) const;

private:
    std::size_t rowsAbove() const;

    const FormEditor& editor_;
    work::Recall recall_;
    std::vector<work::Fact> facts_;  ///< above the fields
    Area above_;
    Area fields_;
    Area beside_;  ///< of no columns: none
};

}  // namespace quillmere::screen
