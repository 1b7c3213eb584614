// Coloured text on a terminal.
#pragma once

#include <quillmere/records/completion_result.hpp>
#include <quillmere/widget/design.hpp>

#include <string>
#include <string_view>

namespace quillmere::base {

/// Whether standard output should be coloured: on a terminal with colours, unless NO_COLOR is set
/// (https://no-color.org).
bool wantsColour(bool outputIsTerminal);

/// Colours text, or leaves it plain.
class Style {
public:
    explicit Style(bool coloured) : coloured_(coloured) {}

    std::string accented(std::string_view text, QuillmereDesign::Accent accent) const;
    /// In the colour of a result, for a text that also says it by a sign.
    std::string marked(std::string_view text, CompletionResult completion) const;
    std::string dimmed(std::string_view text) const;

private:
    std::string wrapped(std::string_view text, std::string_view sequence) const;

    bool coloured_;
};

/// A bar that is filled to a share of 0 to 1.
std::string progressBar(double share);

}  // namespace quillmere::base
