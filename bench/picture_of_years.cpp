#include "picture_of_years.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace quillmere::bench {
namespace {

constexpr double left = 76;
constexpr double top = 24;
constexpr double width = 520;
constexpr double height = 400;
constexpr double room = 190;  // for the names at the right

constexpr double fewestSessions = 10;
constexpr double mostSessions = 100'000;
constexpr double leastTime = 1;
constexpr double mostTime = 10'000;

double share(double value, double least, double most)
{
    return std::log(value / least) / std::log(most / least);
}

double x(double sessions) { return left + width * share(sessions, fewestSessions, mostSessions); }
double y(double milliseconds) { return top + height * (1 - share(milliseconds, leastTime, mostTime)); }

template <class... Value>
std::string formatted(const char* format, Value... values)
{
    char text[512];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string grid()
{
    std::string svg;
    for (double sessions = fewestSessions; sessions <= mostSessions; sessions *= 10) {
        svg += formatted(
            "<path d='M%.1f %.1fV%.1f' class='grid'/><text x='%.1f' y='%.1f' "
            "text-anchor='middle'>%.0f</text>\n",
            x(sessions), top, top + height, x(sessions), top + height + 18, sessions);
    }
    for (double time = leastTime; time <= mostTime; time *= 10) {
        svg += formatted(
            "<path d='M%.1f %.1fH%.1f' class='grid'/><text x='%.1f' y='%.1f' "
            "text-anchor='end'>%.0f ms</text>\n",
            left, y(time), left + width, left - 6, y(time) + 4, time);
    }
    return svg + formatted("<text x='%.1f' y='%.1f' text-anchor='middle'>sessions in the history</text>\n",
                           left + width / 2, top + height + 40);
}

std::string drawn(const Line& line, double nameAt)
{
    std::string path;
    for (const Point& point : line.points) {
        path += formatted("%c%.1f %.1f", path.empty() ? 'M' : 'L', x(point.sessions), y(point.milliseconds));
    }
    const char* const kind = line.isOurs ? "ours" : "rival";
    return formatted("<path d='%s' class='%s'/>", path.c_str(), kind) +
           formatted("<text x='%.1f' y='%.1f' class='%s-name'>%s</text>\n", left + width + 8, nameAt, kind,
                     line.name.c_str());
}

}  // namespace

std::string pictureOf(const std::vector<Line>& lines)
{
    std::string svg = formatted(
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 %.0f %.0f' "
        "font-family='sans-serif' font-size='12'>\n",
        left + width + room, top + height + 56);
    svg +=
        "<style>text{fill:#23211d}.grid{stroke:#d8d4cb}.ours,.rival{fill:none;stroke-width:2}"
        ".ours{stroke:#1f6f5c}.rival{stroke:#a8552f;stroke-dasharray:5 4}.ours-name{fill:#1f6f5c}"
        ".rival-name{fill:#a8552f}</style>\n<rect width='100%' height='100%' fill='#faf9f6'/>\n";
    svg += grid();
    std::vector<Line> sorted = lines;
    std::sort(sorted.begin(), sorted.end(), [](const Line& one, const Line& other) {
        return one.points.back().milliseconds < other.points.back().milliseconds;
    });
    double nameAt = top + height + 100;
    for (const Line& line : sorted) {
        constexpr double lineHeight = 16;
        nameAt = std::min(nameAt - lineHeight, y(line.points.back().milliseconds) + 4);
        svg += drawn(line, nameAt);
    }
    return svg + "</svg>\n";
}

}  // namespace quillmere::bench
