#include "screen/canvas/canvas.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <array>

namespace quillmere::screen {
namespace {

struct AsciiForm {
    std::string_view character;
    char ascii;
};

/// Replacements of the drawing characters for terminals that show only ASCII.
constexpr auto asciiForms = std::to_array<AsciiForm>({
    {"█", '#'}, {"░", '.'}, {"▌", '#'}, {"─", '-'}, {"│", '|'}, {"┌", '+'}, {"┐", '+'},
    {"└", '+'}, {"┘", '+'}, {"├", '+'}, {"┤", '+'}, {"┬", '+'}, {"┴", '+'}, {"┼", '+'},
    {"▸", '>'}, {"●", '*'}, {"○", 'o'}, {"·", '.'}, {"•", '*'}, {"↑", '^'}, {"↓", 'v'},
    {"…", '~'}, {"✓", '+'}, {"½", '%'}, {"✗", '-'}, {"◐", 'o'}, {"×", 'x'},
});

struct CodeRange {
    char32_t first;
    char32_t last;
};

/// Joiners and variation selectors. Terminals disagree about the width of joined characters, so parts of old
/// ones would stay visible; without joiners every terminal agrees with our count of columns.
constexpr auto joiners = std::to_array<CodeRange>({
    {0x200B, 0x200D},
    {0x2060, 0x2064},
    {0xFE00, 0xFE0F},
    {0xFEFF, 0xFEFF},
    {0xE0000, 0xE0FFF},
});

bool isJoiner(std::string_view character)
{
    return std::any_of(joiners.begin(), joiners.end(), [&](const CodeRange& range) {
        std::string first;
        std::string last;
        json::appendUtf8(first, range.first);
        json::appendUtf8(last, range.last);
        // UTF-8 sorts in the order of code points.
        return character >= first && character <= last;
    });
}

std::string asciiOf(std::string_view character, std::size_t width)
{
    for (const AsciiForm& form : asciiForms) {
        if (form.character == character) {
            return std::string(1, form.ascii);
        }
    }
    return std::string(width, '?');
}

}  // namespace

Canvas::Canvas(Size size, Charset charset) : size_(size), charset_(charset), cells_(size.rows * size.columns)
{
}

std::size_t Canvas::write(Place place, std::string_view text, Look look, std::size_t most)
{
    if (place.row >= size_.rows || place.column >= size_.columns) {
        return 0;
    }
    const std::string shown =
        base::cutToColumns(base::sanitized(text), std::min(most, size_.columns - place.column));
    std::size_t taken = 0;
    for (std::string_view rest = shown; !rest.empty();) {
        const std::string_view character = rest.substr(0, json::frontSequence(rest).length);
        const std::size_t width = base::columnsOf(character);
        if (width > 0) {
            put(character, width, look, {place.row, place.column + taken});
            taken += width;
        } else if (taken > 0 && charset_ == Charset::unicode && !isJoiner(character)) {
            // It combines with the character before, which may cover two cells.
            std::size_t index = place.row * size_.columns + place.column + taken - 1;
            index -= cells_[index].columns == 0 ? 1 : 0;
            cells_[index].text += character;
        }
        rest.remove_prefix(character.size());
    }
    return taken;
}

void Canvas::put(std::string_view character, std::size_t width, Look look, Place place)
{
    const std::size_t index = place.row * size_.columns + place.column;
    if (charset_ == Charset::ascii && character.size() > 1) {
        const std::string ascii = asciiOf(character, width);
        for (std::size_t offset = 0; offset < width; ++offset) {
            cells_[index + offset] = {.text = ascii.substr(offset, 1), .columns = 1, .look = look};
        }
        return;
    }
    cells_[index] = {.text = std::string(character), .columns = width, .look = look};
    for (std::size_t offset = 1; offset < width; ++offset) {
        cells_[index + offset] = {.text = {}, .columns = 0, .look = look};
    }
}

void Canvas::copy(const Canvas& from, std::size_t firstRow, const Area& area)
{
    for (std::size_t row = 0; row < area.rows && firstRow + row < from.size_.rows; ++row) {
        for (std::size_t column = 0; column < std::min(area.columns, from.size_.columns); ++column) {
            cells_[(area.row + row) * size_.columns + area.column + column] =
                from.cell({firstRow + row, column});
        }
    }
    const std::optional<Place>& cursor = from.cursor_;
    if (cursor && cursor->row >= firstRow && cursor->row < firstRow + area.rows) {
        cursor_ = {area.row + cursor->row - firstRow, area.column + cursor->column};
    }
}

std::string Canvas::rowText(std::size_t row) const
{
    std::string text;
    for (std::size_t column = 0; column < size_.columns; ++column) {
        text += cell({row, column}).text;
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string Canvas::text() const
{
    std::string text;
    for (std::size_t row = 0; row < size_.rows; ++row) {
        text += rowText(row) + '\n';
    }
    return text;
}

}  // namespace quillmere::screen
