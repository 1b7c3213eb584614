#include "screen/terminal/painter.hpp"

namespace quillmere::screen {
namespace {

/// From this depth on the neutral colour makes text secondary, and less than that dims it.
constexpr base::ColourDepth leastForNeutral = base::ColourDepth::of256;

bool isBlank(const Cell& cell) { return cell.text == " "; }

}  // namespace

void Painter::setBackground(base::Background background)
{
    if (background != background_) {
        background_ = background;
        forget();
    }
}

std::string Painter::sequenceFor(const Look& look) const
{
    std::string parameters;
    const auto choose = [&](const base::Colour& colour) {
        parameters = base::foregroundParameters(colour, abilities_.colours, background_);
    };
    bool isDim = false;
    if (look.completion) {
        choose(base::colourOf(*look.completion));
    } else if (look.accent) {
        choose(base::colourOf(*look.accent));
    } else if ((look.dim || look.edge) && abilities_.colours >= leastForNeutral) {
        choose(look.edge ? base::edge : base::colourOf(QuillmereDesign::Accent::neutral));
    } else {
        isDim = look.dim || look.edge;
    }
    return abilities_.plain + (look.bold ? abilities_.bold : "") + (isDim ? abilities_.dim : "") +
           (parameters.empty() ? "" : "\x1b[" + parameters + "m");
}

void Painter::paintCell(std::string& bytes, const Cell& cell, Place place)
{
    if (cursor_ != place) {
        bytes += abilities_.moveTo(place);
    }
    if (look_ != cell.look) {
        bytes += sequenceFor(cell.look);
        look_ = cell.look;
    }
    bytes += cell.text;
    // Terminals disagree about the width of some characters, so only letters of one byte are trusted.
    cursor_.reset();
    if (cell.text.size() == 1) {
        cursor_ = {place.row, place.column + 1};
    }
}

std::string Painter::paint(const Canvas& next)
{
    const bool isWhole = !shown_ || shown_->size() != next.size();
    std::string bytes = abilities_.plain + (isWhole ? abilities_.clear : "");
    cursor_.reset();
    look_ = {};
    const auto [rows, columns] = next.size();
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            const Place place{row, column};
            const Cell& cell = next.cell(place);
            const bool isShown = isWhole ? isBlank(cell) : shown_->cell(place) == cell;
            const bool isLast = row + 1 == rows && column + 1 == columns;
            if (!isShown && cell.columns > 0 && !(isLast && abilities_.scrollsAtTheEnd)) {
                paintCell(bytes, cell, place);
            }
        }
    }
    bytes += abilities_.plain;
    if (next.cursor()) {
        bytes += abilities_.moveTo(*next.cursor());
    }
    shown_ = next;
    return bytes;
}

}  // namespace quillmere::screen
