#include "figures/local_day.hpp"

#include <time.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace quillmere::figures {
namespace {

namespace chrono = std::chrono;

constexpr auto monthNames = std::to_array<std::string_view>(
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
constexpr auto weekdayNames =
    std::to_array<std::string_view>({"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"});

Day dayOfSeconds(std::int64_t secondsSince1970)
{
    const auto seconds = static_cast<std::time_t>(secondsSince1970);
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return Day(chrono::local_days(chrono::year(fields.tm_year + 1900) /
                                  chrono::month(static_cast<unsigned>(fields.tm_mon + 1)) /
                                  chrono::day(static_cast<unsigned>(fields.tm_mday))));
}

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

IsoWeek isoWeekOf(Day day)
{
    // Its Thursday lies in the year that has most of the week.
    const Day thursday = firstOf(Unit::week, day) + chrono::days(3);
    const chrono::year year = chrono::year_month_day(thursday).year();
    const Day newYear(chrono::local_days(year / chrono::January / 1));
    return {.year = static_cast<int>(year), .number = static_cast<int>((thursday - newYear).count() / 7 + 1)};
}

/// A whole number of digits only.
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

Day firstOf(Unit unit, Day day)
{
    switch (unit) {
        case Unit::day: break;
        case Unit::week: return day - (chrono::weekday(day) - chrono::Monday);
        case Unit::month: {
            const chrono::year_month_day date(day);
            return Day(chrono::local_days(date.year() / date.month() / 1));
        }
    }
    return day;
}

std::string labelOf(Unit unit, Day day)
{
    if (unit == Unit::week) {
        const IsoWeek week = isoWeekOf(day);
        return padded(week.year, 4) + "-W" + padded(week.number, 2);
    }
    const chrono::year_month_day date(day);
    const std::string month = padded(static_cast<int>(date.year()), 4) + "-" +
                              padded(static_cast<int>(static_cast<unsigned>(date.month())), 2);
    return unit == Unit::month ? month
                               : month + "-" + padded(static_cast<int>(static_cast<unsigned>(date.day())), 2);
}

std::string shortLabelOf(Unit unit, Day day)
{
    if (unit == Unit::week) {
        return "W" + std::to_string(isoWeekOf(day).number);
    }
    const chrono::year_month_day date(day);
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

Day LocalCalendar::dayOf(Instant instant)
{
    return dayOfSeconds(static_cast<std::int64_t>(std::floor(instant.secondsSince1970())));
}

Instant LocalCalendar::startOf(Day day)
{
    const auto number = day.time_since_epoch().count();
    if (const auto known = starts_.find(number); known != starts_.end()) {
        return Instant(known->second);
    }
    // No zone is further from UTC than this. Asking for a local time would do where every midnight comes
    // once; looking for the first second of the day does everywhere.
    constexpr std::int64_t farthest = 25 * 3600;
    const std::int64_t midnight = std::int64_t{number} * 86'400;
    std::int64_t before = midnight - farthest;
    std::int64_t start = midnight + farthest;
    while (start - before > 1) {
        const std::int64_t middle = before + (start - before) / 2;
        (dayOfSeconds(middle) >= day ? start : before) = middle;
    }
    return Instant(starts_.emplace(number, static_cast<double>(start)).first->second);
}

}  // namespace quillmere::figures
