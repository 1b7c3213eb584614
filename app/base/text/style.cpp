#include "base/text/style.hpp"

#include "base/text/accents.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillmere::base {
namespace {

/// Select Graphic Rendition (ECMA-48): bold, in a basic colour.
std::string sequenceFor(QuillmereDesign::Accent accent)
{
    const short colour = coloursOf(accent).of16;
    return colour == usualColour ? "\x1b[1m" : "\x1b[1;3" + std::to_string(colour) + "m";
}

bool isSet(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && *value;
}

}  // namespace

bool wantsColour(bool outputIsTerminal)
{
    const char* const terminal = std::getenv("TERM");
    return outputIsTerminal && !isSet("NO_COLOR") && terminal && std::string_view(terminal) != "dumb";
}

std::string Style::wrapped(std::string_view text, std::string_view sequence) const
{
    return coloured_ ? std::string(sequence).append(text).append("\x1b[0m") : std::string(text);
}

std::string Style::accented(std::string_view text, QuillmereDesign::Accent accent) const
{
    return wrapped(text, sequenceFor(accent));
}

std::string Style::dimmed(std::string_view text) const { return wrapped(text, "\x1b[2m"); }

std::string progressBar(double share)
{
    constexpr int width = 24;
    const int filled = static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * width));
    return "[" + std::string(static_cast<std::size_t>(filled), '#') +
           std::string(static_cast<std::size_t>(width - filled), '.') + "]";
}

}  // namespace quillmere::base
