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

std::string LookBackPage::report(const Printed& printed) const
{
    const figures::Range range =
        figures::spanFromText(printed.span, printed.today).value_or(figures::Range{});
    const figures::LookBack look =
        figures::statistics(presenter_.state(), range, printed.today, work::habitsOf(presenter_.values()));
    return lookback::terminalReport(look, {.style = base::Style(false),
                                           .width = lookback::widthOfPage(printed.columns),
                                           .drawsBlocks = printed.charset == Charset::unicode});
}

Canvas LookBackPage::text(std::size_t columns, Charset charset, Look) const
{
    const figures::LocalCalendar calendar(work::habitsOf(presenter_.values()).dayBeginsAtHour);
    const Printed wanted{span_, calendar.dayOf(presenter_.situation().now), presenter_.state().updatedAt,
                         columns, charset};
    if (printed_ != wanted) {
        report_ = report(wanted);
        printed_ = wanted;
    }
    const auto rows = static_cast<std::size_t>(std::count(report_.begin(), report_.end(), '\n'));
    Canvas canvas({.rows = rows, .columns = columns}, charset);
    Flow flow(canvas, canvas.area());
    for (std::size_t begin = 0; begin < report_.size();) {
        const std::size_t end = report_.find('\n', begin);
        flow.line(std::string_view(report_).substr(begin, end - begin));
        begin = end + 1;
    }
    return canvas;
}

}  // namespace quillmere::screen
