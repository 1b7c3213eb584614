#include "lookback/day_text.hpp"
#include "lookback/page/charts.hpp"
#include "lookback/page/drawing.hpp"
#include "lookback/words.hpp"

namespace quillmere::lookback {

std::string heatChart(const figures::LookBack& look, const figures::HeatMap& map, std::size_t first,
                      std::size_t count, const std::string& label)
{
    constexpr double left = 46;
    constexpr double top = 24;
    constexpr double step = 13.1;
    constexpr double size = 11.2;
    constexpr std::size_t monthRoom = 3;  ///< in weeks, for the name of a month
    std::string markup;
    std::size_t free = 0;
    for (std::size_t index = 0; index < count; ++index) {
        const figures::Day weekBegin = map.firstWeek + std::chrono::weeks(first + index);
        const double x = left + static_cast<double>(index) * step;
        const figures::Day month = figures::firstOf(figures::Unit::month, weekBegin + std::chrono::days(6));
        if (month >= weekBegin && index >= free && index + monthRoom <= count) {
            markup += caption(x, top - 7, "start", shortLabelOf(figures::Unit::month, month));
            free = index + monthRoom;
        }
        for (int weekday = 0; weekday < 7; ++weekday) {
            const figures::Day day = weekBegin + std::chrono::days(weekday);
            const double focus = figures::focusOn(look, day);
            if (const std::optional<int> level = map.levelOf(day, focus)) {
                markup += rectangle({x, top + weekday * step, size, size}, "heat" + std::to_string(*level),
                                    std::string(weekdayText(day)) + " " + labelOf(figures::Unit::day, day) +
                                        ": " + focusText(focus));
            }
        }
    }
    for (const int weekday : {0, 2, 4, 6}) {
        markup += caption(left - 6, top + weekday * step + 10, "end",
                          std::string(weekdayText(map.firstWeek + std::chrono::days(weekday))));
    }
    return drawing(left + static_cast<double>(count) * step, top + 7 * step + 4, label, markup);
}

}  // namespace quillmere::lookback
