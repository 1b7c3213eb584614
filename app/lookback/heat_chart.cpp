// The days of a year as squares, a column a week.
#include "lookback/charts.hpp"
#include "lookback/drawing.hpp"
#include "lookback/markup.hpp"
#include "lookback/words.hpp"

namespace quillmere::lookback {

std::string heatChart(const figures::LookBack& look, const figures::HeatMap& map, std::size_t first,
                      std::size_t count, const std::string& label)
{
    constexpr double left = 46;
    constexpr double top = 24;
    constexpr double step = 13.1;
    constexpr double size = 11.2;
    constexpr std::size_t monthRoom = 3;  ///< weeks that the name of a month takes
    std::string markup;
    std::size_t free = 0;
    for (std::size_t index = 0; index < count; ++index) {
        const figures::Day monday = map.firstMonday + std::chrono::weeks(first + index);
        const double x = left + static_cast<double>(index) * step;
        const figures::Day month = figures::firstOf(figures::Unit::month, monday + std::chrono::days(6));
        if (month >= monday && index >= free && index + monthRoom <= count) {
            markup += caption(x, top - 7, "start", figures::shortLabelOf(figures::Unit::month, month));
            free = index + monthRoom;
        }
        for (int weekday = 0; weekday < 7; ++weekday) {
            const figures::Day day = monday + std::chrono::days(weekday);
            const double focus = figures::focusOn(look, day);
            if (const std::optional<int> level = map.levelOf(day, focus)) {
                markup += rectangle({x, top + weekday * step, size, size}, "heat" + std::to_string(*level),
                                    std::string(figures::weekdayText(day)) + " " +
                                        figures::labelOf(figures::Unit::day, day) + ": " + focusText(focus));
            }
        }
    }
    for (const int weekday : {0, 2, 4, 6}) {
        markup += caption(left - 6, top + weekday * step + 10, "end",
                          std::string(figures::weekdayText(map.firstMonday + std::chrono::days(weekday))));
    }
    return drawing(left + static_cast<double>(count) * step, top + 7 * step + 4, label, markup);
}

std::string keyOf(const std::vector<KeyEntry>& entries)
{
    std::string markup;
    for (const KeyEntry& entry : entries) {
        markup +=
            element("span", {{"class", "key"}},
                    element("span", {{"class", "swatch " + entry.colourClass}, {"aria-hidden", "true"}}) +
                        escaped(entry.text));
    }
    return element("p", {{"class", "keys"}}, markup);
}

}  // namespace quillmere::lookback
