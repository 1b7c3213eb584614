// What charts are drawn with: the elements of SVG that they need.
#pragma once

#include <string>

namespace quillmere::lookback {

/// A whole picture, scaled by the page, with a label for those who do not see it.
std::string drawing(double width, double height, const std::string& label, const std::string& content);

struct Box {
    double x;
    double y;
    double width;
    double height;
};

/// A rectangle that says what it stands for when it is pointed at; without a title it says nothing.
std::string rectangle(const Box& box, const std::string& colourClass, const std::string& title);

/// Text on a baseline; `anchor` is "start", "middle" or "end" (text-anchor).
std::string caption(double x, double y, const std::string& anchor, const std::string& text);

}  // namespace quillmere::lookback
