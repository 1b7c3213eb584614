#include "screen/pages/look_back_page.hpp"

#include "figures/span.hpp"
#include "figures/statistics.hpp"
#include "lookback/terminal/terminal_report.hpp"
#include "screen/canvas/flow.hpp"
#include "work/habits.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillmere::screen {
namespace {

struct SpanKey {
    std::string_view key;
    std::string_view span;
    std::string_view label;
};

constexpr auto spanKeys = std::to_array<SpanKey>({
    {"w", "week", "week"},
    {"m", "month", "month"},
    {"a", "", "all"},
});

}  // namespace

PageStep LookBackPage::take(const Key& key, const Room& room)
{
    for (const SpanKey& row : spanKeys) {
        if (types(key, row.key)) {
            span_ = row.span;
            toTop();
            return {};
        }
    }
    return TextPage::take(key, room);
}

std::vector<KeyHint> LookBackPage::ownKeys() const
{
    std::vector<KeyHint> hints;
    for (const SpanKey& row : spanKeys) {
        if (row.span != span_) {
            hints.push_back({std::string(row.key), std::string(row.label)});
        }
    }
    return hints;
}

Canvas LookBackPage::text(std::size_t columns, Charset charset, Look) const
{
    const figures::Habits habits = work::habitsOf(presenter_.values());
    const figures::Day today =
        figures::LocalCalendar(habits.dayBeginsAtHour).dayOf(presenter_.situation().now);
    const figures::Range range = figures::spanFromText(span_, today).value_or(figures::Range{});
    const figures::LookBack look = figures::statistics(presenter_.state(), range, today, habits);
    const std::string report = lookback::terminalReport(look, {.style = base::Style(false),
                                                               .width = lookback::widthOfPage(columns),
                                                               .drawsBlocks = charset == Charset::unicode});
    const auto rows = static_cast<std::size_t>(std::count(report.begin(), report.end(), '\n'));
    Canvas canvas({.rows = rows, .columns = columns}, charset);
    Flow flow(canvas, canvas.area());
    for (std::size_t begin = 0; begin < report.size();) {
        const std::size_t end = report.find('\n', begin);
        flow.line(report.substr(begin, end - begin));
        begin = end + 1;
    }
    return canvas;
}

}  // namespace quillmere::screen
