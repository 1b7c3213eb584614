// An independent calendar for checking the library's: walks through a year day by day, and counts the earlier
// days by the rule of leap years.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmere::test {

constexpr bool isLeapYear(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

constexpr std::int64_t daysOfMonth(std::int64_t year, std::int64_t month)
{
    constexpr std::array<std::int64_t, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days.at(static_cast<std::size_t>(month - 1)) + (month == 2 && isLeapYear(year) ? 1 : 0);
}

/// Days from 0000-01-01 to January 1st of a year >= 0.
constexpr std::int64_t daysBeforeYear(std::int64_t year)
{
    // Year 0 is a leap year and included in the count.
    const std::int64_t before = year - 1;
    return year == 0 ? 0 : 365 * year + before / 4 - before / 100 + before / 400 + 1;
}

constexpr std::int64_t daysBefore1970 = daysBeforeYear(1970);

/// The seconds since 1970 of a text `YYYY-MM-DDThh:mm:ss` with "Z" or `±hh:mm`. Absent for any other text,
/// for an impossible date or time, and for an instant outside of the years 0000 to 9999.
constexpr std::optional<double> secondsOfDateText(std::string_view text)
{
    constexpr std::string_view shape = "dddd-dd-ddTdd:dd:dd";
    const auto fits = [&](std::size_t from, std::string_view wanted) {
        for (std::size_t index = 0; index < wanted.size(); ++index) {
            const char found = text[from + index];
            if (wanted[index] == 'd' ? found < '0' || found > '9' : found != wanted[index]) {
                return false;
            }
        }
        return true;
    };
    const auto number = [&](std::size_t from, std::size_t digits) {
        std::int64_t value = 0;
        for (std::size_t index = from; index < from + digits; ++index) {
            value = value * 10 + (text[index] - '0');
        }
        return value;
    };
    const bool isUtc = text.size() == shape.size() + 1 && text.back() == 'Z';
    const bool hasOffset = text.size() == shape.size() + 6;
    if ((!isUtc && !hasOffset) || !fits(0, shape)) {
        return std::nullopt;
    }
    std::int64_t east = 0;
    if (hasOffset) {
        if (!fits(19, "+dd:dd") && !fits(19, "-dd:dd")) {
            return std::nullopt;
        }
        if (number(20, 2) >= 24 || number(23, 2) >= 60) {
            return std::nullopt;
        }
        east = (number(20, 2) * 60 + number(23, 2)) * (text[19] == '-' ? -60 : 60);
    }
    const std::int64_t year = number(0, 4);
    const std::int64_t month = number(5, 2);
    const std::int64_t day = number(8, 2);
    const bool exists = month >= 1 && month <= 12 && day >= 1 && day <= daysOfMonth(year, month) &&
                        number(11, 2) < 24 && number(14, 2) < 60 && number(17, 2) < 60;
    if (!exists) {
        return std::nullopt;
    }
    std::int64_t days = daysBeforeYear(year) - daysBefore1970 + day - 1;
    for (std::int64_t earlier = 1; earlier < month; ++earlier) {
        days += daysOfMonth(year, earlier);
    }
    const std::int64_t seconds = (number(11, 2) * 60 + number(14, 2)) * 60 + number(17, 2);
    const std::int64_t sinceYear0 = (days + daysBefore1970) * 86'400 + seconds - east;
    if (sinceYear0 < 0 || sinceYear0 >= daysBeforeYear(10'000) * 86'400) {
        return std::nullopt;
    }
    return static_cast<double>(days * 86'400 + seconds - east);
}

}  // namespace quillmere::test
