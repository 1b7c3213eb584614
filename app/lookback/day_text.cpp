#include "lookback/day_text.hpp"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>

namespace quillmere::lookback {
namespace {

namespace chrono = std::chrono;
using figures::Day;
using figures::Unit;

constexpr auto monthNames = std::to_array<std::string_view>(
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
constexpr auto weekdayNames =
    std::to_array<std::string_view>({"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"});

std::string padded(int number, std::size_t digits)
{
    const std::string text = std::to_string(std::abs(number));
    const std::string zeros(digits > text.size() ? digits - text.size() : 0, '0');
    return (number < 0 ? "-" : "") + zeros + text;
}

struct IsoWeek {
    int year;
    int number;
};

IsoWeek isoWeekOf(Day firstDay)
{
    // The middle of the week lies in the week of ISO 8601 that has most of its days, and the Thursday of that
    // lies in the year to which it belongs.
    const Day thursday = figures::firstOf(Unit::week, firstDay + chrono::days(3)) + chrono::days(3);
    const chrono::year year = chrono::year_month_day(thursday).year();
    const Day newYear(chrono::local_days(year / chrono::January / 1));
    return {.year = static_cast<int>(year), .number = static_cast<int>((thursday - newYear).count() / 7 + 1)};
}

/// Digits only.
std::optional<int> numberOf(std::string_view digits)
{
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end && digits.front() != '-' ? std::optional(number)
                                                                        : std::nullopt;
}

std::optional<Day> dateOf(std::string_view text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const auto year = numberOf(text.substr(0, 4));
    const auto month = numberOf(text.substr(5, 2));
    const auto day = numberOf(text.substr(8, 2));
    if (!year || !month || !day) {
        return std::nullopt;
    }
    const chrono::year_month_day date(chrono::year{*year}, chrono::month(static_cast<unsigned>(*month)),
                                      chrono::day(static_cast<unsigned>(*day)));
    return date.ok() ? std::optional(Day(chrono::local_days(date))) : std::nullopt;
}

}  // namespace

std::string labelOf(figures::Unit unit, figures::Day first)
{
    if (unit == Unit::week) {
        const IsoWeek week = isoWeekOf(first);
        return padded(week.year, 4) + "-W" + padded(week.number, 2);
    }
    const chrono::year_month_day date(first);
    const std::string month = padded(static_cast<int>(date.year()), 4) + "-" +
                              padded(static_cast<int>(static_cast<unsigned>(date.month())), 2);
    return unit == Unit::month ? month
                               : month + "-" + padded(static_cast<int>(static_cast<unsigned>(date.day())), 2);
}

std::string shortLabelOf(figures::Unit unit, figures::Day first)
{
    if (unit == Unit::week) {
        return "W" + std::to_string(isoWeekOf(first).number);
    }
    const chrono::year_month_day date(first);
    const std::string month(monthNames[static_cast<unsigned>(date.month()) - 1]);
    return unit == Unit::month ? month
                               : std::to_string(static_cast<unsigned>(date.day())).append(" ").append(month);
}

std::string_view weekdayText(Day day) { return weekdayNames[chrono::weekday(day).iso_encoding() - 1]; }

std::optional<Day> dayFromText(std::string_view text, Day today)
{
    if (text == "today") {
        return today;
    }
    if (text.size() >= 2 && text.ends_with('d')) {
        constexpr int most = 9999 * 366;
        const auto daysAgo = numberOf(text.substr(0, text.size() - 1));
        return daysAgo && *daysAgo <= most ? std::optional(today - chrono::days(*daysAgo)) : std::nullopt;
    }
    return dateOf(text);
}

}  // namespace quillmere::lookback
