// Editing a choice.
#pragma once

#include "screen/editors/field_editor.hpp"

#include <optional>
#include <vector>

namespace quillmere::screen {

/// Arrows choose the next option, and a character chooses the first option that starts with it. Long options
/// stand below each other, others side by side.
class ChoiceFieldEditor final : public FieldEditor {
public:
    explicit ChoiceFieldEditor(const work::Field& field);

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override;
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    work::FieldValue value() const override { return chosen_ ? options_[*chosen_].key : std::string(); }

private:
    void chooseByLetter(char letter);
    bool step(bool forward);

    std::vector<work::Option> options_;
    std::optional<std::size_t> chosen_;
    bool isVertical_;
};

}  // namespace quillmere::screen
