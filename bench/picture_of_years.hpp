// Cost against years, drawn.
#pragma once

#include <string>
#include <vector>

namespace quillmere::bench {

struct Point {
    double sessions;
    double milliseconds;
};

struct Line {
    std::string name;
    std::vector<Point> points;
    bool isOurs;
};

/// SVG with both axes logarithmic.
std::string pictureOf(const std::vector<Line>& lines);

}  // namespace quillmere::bench
