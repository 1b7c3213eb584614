#include "lookback/day_text.hpp"

#include "base/text/calendar_text.hpp"

#include <chrono>
#include <cstdlib>

namespace quillmere::lookback {
namespace {

namespace chrono = std::chrono;
using figures::Day;
using figures::Unit;

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
    const std::string month(base::monthText(date.month()));
    return unit == Unit::month ? month
                               : std::to_string(static_cast<unsigned>(date.day())).append(" ").append(month);
}

std::string_view weekdayText(Day day) { return base::weekdayText(chrono::weekday(day)); }

std::string hourText(std::size_t hour, base::Hours hours)
{
    if (hours == base::Hours::twentyFour) {
        return padded(static_cast<int>(hour), 2) + ":00";
    }
    return std::to_string((hour + 11) % 12 + 1) + (hour < 12 ? " am" : " pm");
}

}  // namespace quillmere::lookback
