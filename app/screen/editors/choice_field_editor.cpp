#include "screen/editors/choice_field_editor.hpp"

#include "screen/canvas/layout.hpp"

#include <algorithm>
#include <cctype>

namespace quillmere::screen {
namespace {

constexpr std::string_view chosenMark = "● ";
constexpr std::string_view otherMark = "○ ";

bool sameLetter(char left, char right)
{
    const auto lower = [](char letter) { return std::tolower(static_cast<unsigned char>(letter)); };
    return lower(left) == lower(right);
}

}  // namespace

ChoiceFieldEditor::ChoiceFieldEditor(const work::Field& field)
    : options_(field.options), isVertical_(field.areOptionsLong)
{
    for (std::size_t index = 0; index < options_.size(); ++index) {
        if (work::FieldValue(options_[index].key) == field.value) {
            chosen_ = index;
        }
    }
}

void ChoiceFieldEditor::chooseByLetter(char letter)
{
    for (std::size_t index = 0; index < options_.size(); ++index) {
        if (!options_[index].text.empty() && sameLetter(options_[index].text[0], letter)) {
            chosen_ = index;
            return;
        }
    }
}

bool ChoiceFieldEditor::step(bool forward)
{
    const bool isAtEnd = chosen_ && (forward ? *chosen_ + 1 == options_.size() : *chosen_ == 0);
    if (!isAtEnd) {
        chosen_ = chosen_ ? (forward ? *chosen_ + 1 : *chosen_ - 1) : 0;
    }
    return !isAtEnd;
}

Effect ChoiceFieldEditor::take(const Key& key, std::size_t)
{
    const std::optional<std::size_t> before = chosen_;
    switch (key.kind) {
        case Key::Kind::left: step(false); break;
        case Key::Kind::right: step(true); break;
        case Key::Kind::up:
        case Key::Kind::down:
            if (!isVertical_ || !step(key.kind == Key::Kind::down)) {
                return Effect::notForIt;
            }
            break;
        case Key::Kind::character: chooseByLetter(key.text[0]); break;
        default: return Effect::notForIt;
    }
    return chosen_ == before ? Effect::unchanged : Effect::changed;
}

std::size_t ChoiceFieldEditor::rows(std::size_t) const { return isVertical_ ? options_.size() : 1; }

void ChoiceFieldEditor::draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const
{
    Place place{area.row, area.column};
    for (std::size_t index = 0; index < options_.size(); ++index) {
        const bool isChosen = chosen_ == index;
        const Look shown = isChosen ? look : Look{.dim = true};
        const std::size_t room =
            area.column + area.columns - std::min(place.column, area.column + area.columns);
        const std::string text = std::string(isChosen ? chosenMark : otherMark) + options_[index].text;
        const std::size_t taken = canvas.write(place, text, shown, room);
        if (isCurrent && (isChosen || (!chosen_ && index == 0))) {
            canvas.setCursor(place);
        }
        if (isVertical_) {
            ++place.row;
        } else {
            place.column += taken + columnsOf(QuillmereDesign::Spacing::loose);
        }
    }
}

}  // namespace quillmere::screen
