#include "lookback/terminal/drawing.hpp"

#include "base/text/columns.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::lookback {
namespace {

constexpr Glyphs blockGlyphs = {
    .eighths = {"▏", "▎", "▍", "▌", "▋", "▊", "▉", "▇"},  // the last leaves a gap between bars
    .heat = {"·", "░", "▒", "▓", "█"},
    .completions = {"▇", "▒", "░"},
};
// Up to 3/8 of a column show as nothing, from 4/8 on as a whole one.
constexpr Glyphs plainGlyphs = {
    .eighths = {"", "", "", "#", "#", "#", "#", "#"},
    .heat = {".", "-", "+", "*", "#"},
    .completions = {"#", "+", "-"},
};

}  // namespace

const Glyphs& glyphsOf(const TerminalPage& page) { return page.drawsBlocks ? blockGlyphs : plainGlyphs; }

std::string repeated(std::string_view text, std::size_t count)
{
    std::string row;
    for (std::size_t index = 0; index < count; ++index) {
        row += text;
    }
    return row;
}

std::string filledUp(std::string text, std::size_t width)
{
    const std::size_t taken = base::columnsOf(text);
    return text.append(width > taken ? width - taken : 0, ' ');
}

std::string cutTo(std::size_t width, const std::string& text, const TerminalPage& page)
{
    constexpr std::string_view ellipsis = "…";
    std::string cut = base::cutToColumns(text, width);
    if (!page.drawsBlocks && cut != text && cut.ends_with(ellipsis)) {
        cut.replace(cut.size() - ellipsis.size(), ellipsis.size(), ".");
    }
    return cut;
}

std::string barOf(double share, std::size_t width, const Glyphs& glyphs)
{
    const double wanted = std::clamp(share, 0.0, 1.0) * static_cast<double>(width) * 8;
    const auto eighths = static_cast<std::size_t>(std::lround(wanted));
    std::string bar = repeated(glyphs.eighths.back(), eighths / 8);
    return eighths % 8 > 0 ? bar.append(glyphs.eighths[eighths % 8 - 1]) : bar;
}

std::string heading(const std::string& text, const TerminalPage& page)
{
    return "\n" + page.style.strong(text) + "\n";
}

}  // namespace quillmere::lookback
