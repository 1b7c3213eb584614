#include "lookback/page/drawing.hpp"

#include "lookback/page/markup.hpp"

namespace quillmere::lookback {

std::string drawing(double width, double height, const std::string& label, const std::string& content)
{
    return element("svg",
                   {{"xmlns", "http://www.w3.org/2000/svg"},
                    {"viewBox", "0 0 " + coordinate(width) + " " + coordinate(height)},
                    {"role", "img"},
                    {"aria-label", label}},
                   content);
}

std::string rectangle(const Box& box, const std::string& colourClass, const std::string& title)
{
    return element("rect",
                   {{"class", colourClass},
                    {"x", coordinate(box.x)},
                    {"y", coordinate(box.y)},
                    {"width", coordinate(box.width)},
                    {"height", coordinate(box.height)}},
                   title.empty() ? "" : element("title", {}, escaped(title)));
}

std::string caption(double x, double y, const std::string& anchor, const std::string& text)
{
    return element("text", {{"x", coordinate(x)}, {"y", coordinate(y)}, {"text-anchor", anchor}},
                   escaped(text));
}

}  // namespace quillmere::lookback
