#include "figures/span.hpp"

#include "base/text/calendar_text.hpp"
#include "base/text/lower_case.hpp"

#include <algorithm>
#include <array>

namespace quillmere::figures {
namespace {

namespace chrono = std::chrono;

/// The number of days before today that "9999 years" have.
constexpr int mostDays = 9999 * 366;

Range oneDayRange(Day day) { return {.since = day, .until = day}; }

Range weekOf(Day day, chrono::weekday firstOfWeek)
{
    const Day first = day - (chrono::weekday(day) - firstOfWeek);
    return {.since = first, .until = first + chrono::weeks(1) - oneDay};
}

Range rangeOf(chrono::year_month month)
{
    return {.since = Day(chrono::local_days(month / 1)),
            .until = Day(chrono::local_days(month / chrono::last))};
}

chrono::year_month monthOf(Day day)
{
    const chrono::year_month_day date(day);
    return date.year() / date.month();
}

struct NamedSpan {
    std::string_view name;
    Range (*range)(Day today, chrono::weekday firstOfWeek);
};

constexpr auto spans = std::to_array<NamedSpan>({
    {"today", [](Day today, chrono::weekday) { return oneDayRange(today); }},
    {"yesterday", [](Day today, chrono::weekday) { return oneDayRange(today - oneDay); }},
    {"week", [](Day today, chrono::weekday first) { return weekOf(today, first); }},
    {"last week", [](Day today, chrono::weekday first) { return weekOf(today - chrono::weeks(1), first); }},
    {"month", [](Day today, chrono::weekday) { return rangeOf(monthOf(today)); }},
    {"last month", [](Day today, chrono::weekday) { return rangeOf(monthOf(today) - chrono::months(1)); }},
});

std::optional<Range> namedSpan(std::string_view name, Day today, chrono::weekday firstOfWeek)
{
    const auto found =
        std::find_if(spans.begin(), spans.end(), [name](const NamedSpan& span) { return span.name == name; });
    if (found != spans.end()) {
        return found->range(today, firstOfWeek);
    }
    const std::optional<chrono::weekday> weekday = base::weekdayFromText(name);
    return weekday ? std::optional(oneDayRange(today - (chrono::weekday(today) - *weekday))) : std::nullopt;
}

/// The days that end today.
std::optional<Range> lastDays(std::string_view text, Day today)
{
    if (!text.ends_with('d')) {
        return std::nullopt;
    }
    const std::optional<int> count = base::numberFromDigits(text.substr(0, text.size() - 1));
    if (!count || *count < 1 || *count > mostDays) {
        return std::nullopt;
    }
    return Range{.since = today - chrono::days(*count - 1), .until = today};
}

}  // namespace

std::optional<Range> spanFromText(std::string_view text, Day today, chrono::weekday firstOfWeek)
{
    const std::string name = base::lowerCase(text);
    if (const std::optional<Range> span = namedSpan(name, today, firstOfWeek)) {
        return span;
    }
    if (const std::optional<Range> days = lastDays(name, today)) {
        return days;
    }
    if (const std::optional<chrono::year_month> month = base::monthFromText(name)) {
        return rangeOf(*month);
    }
    const std::optional<Day> day = base::dayFromText(name);
    return day ? std::optional(oneDayRange(*day)) : std::nullopt;
}

std::vector<std::string> namedSpans()
{
    std::vector<std::string> names;
    for (const NamedSpan& span : spans) {
        names.emplace_back(span.name);
    }
    for (int number = 0; number < chrono::days(chrono::weeks(1)).count(); ++number) {
        names.push_back(base::lowerCase(base::weekdayInFull(chrono::Monday + chrono::days(number))));
    }
    names.insert(names.end(), {"7d", "30d"});
    return names;
}

}  // namespace quillmere::figures
