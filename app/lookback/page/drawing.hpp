// The elements of SVG that charts consist of.
#pragma once

#include <string>

namespace quillmere::lookback {

/// A whole picture, scaled by the page, with a label for screen readers.
std::string drawing(double width, double height, const std::string& label, const std::string& content);

struct Box {
    double x;
    double y;
    double width;
    double height;
};

/// A rectangle with a tooltip, unless the title is empty.
std::string rectangle(const Box& box, const std::string& colourClass, const std::string& title);

/// Text on a baseline; `anchor` is "start", "middle" or "end" (text-anchor).
std::string caption(double x, double y, const std::string& anchor, const std::string& text);

}  // namespace quillmere::lookback
