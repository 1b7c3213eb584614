#include "base/text/style.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillmere::base {
namespace {

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

ColourDepth wantedColours(bool outputIsTerminal)
{
    if (!wantsColour(outputIsTerminal)) {
        return ColourDepth::none;
    }
    const char* const variable = std::getenv("COLORTERM");
    const std::string_view more = variable ? variable : "";
    if (more == "truecolor" || more == "24bit") {
        return ColourDepth::ofAll;
    }
    return std::string_view(std::getenv("TERM")).ends_with("256color") ? ColourDepth::of256
                                                                       : ColourDepth::of16;
}

std::string Style::sequenceFor(const Colour& colour, bool isBold) const
{
    const std::string parameters = foregroundParameters(colour, depth_, background_);
    const std::string_view separator = isBold && !parameters.empty() ? ";" : "";
    const std::string all = (isBold ? "1" : "") + std::string(separator) + parameters;
    return all.empty() ? "" : "\x1b[" + all + "m";
}

std::string Style::wrapped(std::string_view text, std::string_view sequence) const
{
    return depth_ != ColourDepth::none && !sequence.empty() && !text.empty()
               ? std::string(sequence).append(text).append("\x1b[0m")
               : std::string(text);
}

std::string Style::accented(std::string_view text, QuillmereDesign::Accent accent) const
{
    return wrapped(text, sequenceFor(colourOf(accent), true));
}

std::string Style::tinted(std::string_view text, QuillmereDesign::Accent accent) const
{
    return wrapped(text, sequenceFor(colourOf(accent), false));
}

std::string Style::marked(std::string_view text, CompletionResult completion) const
{
    return wrapped(text, sequenceFor(colourOf(completion), false));
}

std::string Style::strong(std::string_view text) const { return wrapped(text, "\x1b[1m"); }

std::string Style::dimmed(std::string_view text) const { return wrapped(text, "\x1b[2m"); }

std::string progressBar(double share)
{
    constexpr int width = 24;
    const int filled = static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * width));
    return "[" + std::string(static_cast<std::size_t>(filled), '#') +
           std::string(static_cast<std::size_t>(width - filled), '.') + "]";
}

}  // namespace quillmere::base
