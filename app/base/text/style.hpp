// Coloured text on a terminal.
#pragma once

#include "base/text/colours.hpp"

#include <string>
#include <string_view>

namespace quillmere::base {

/// Whether standard output should be coloured: on a terminal with colours, unless NO_COLOR is set
/// (https://no-color.org).
bool wantsColour(bool outputIsTerminal);

/// The colours of the terminal by TERM and COLORTERM, if colours are wanted.
ColourDepth wantedColours(bool outputIsTerminal);

/// Colours text, or leaves it plain.
class Style {
public:
    /// The basic colours, which a terminal adapts to its background: without asking, nobody knows that.
    explicit Style(bool coloured) : depth_(coloured ? ColourDepth::of16 : ColourDepth::none) {}
    Style(ColourDepth depth, Background background) : depth_(depth), background_(background) {}

    /// Bold.
    std::string accented(std::string_view text, QuillmereDesign::Accent accent) const;
    /// For charts, where bold would be another, brighter colour.
    std::string tinted(std::string_view text, QuillmereDesign::Accent accent) const;
    /// In the colour of a result, for a text that also says it by a sign.
    std::string marked(std::string_view text, CompletionResult completion) const;
    /// Bold, in the usual colour.
    std::string strong(std::string_view text) const;
    std::string dimmed(std::string_view text) const;

private:
    std::string sequenceFor(const Colour& colour, bool isBold) const;
    std::string wrapped(std::string_view text, std::string_view sequence) const;

    ColourDepth depth_;
    Background background_ = Background::dark;
};

/// A bar that is filled to a share of 0 to 1.
std::string progressBar(double share);

}  // namespace quillmere::base
