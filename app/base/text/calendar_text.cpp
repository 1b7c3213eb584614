#include "base/text/calendar_text.hpp"

#include "base/text/lower_case.hpp"

#include <array>
#include <charconv>

namespace quillmere::base {
namespace {

namespace chrono = std::chrono;

constexpr auto monthNames = std::to_array<std::string_view>(
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
/// In the order of chrono::weekday.
constexpr auto weekdayNames = std::to_array<std::string_view>(
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});

constexpr std::size_t shortLength = 3;

constexpr std::size_t monthLength = std::string_view("2026-11").size();
constexpr std::size_t dayLength = std::string_view("2026-11-15").size();

}  // namespace

std::string_view weekdayText(chrono::weekday weekday)
{
    return weekdayInFull(weekday).substr(0, shortLength);
}

std::string_view weekdayInFull(chrono::weekday weekday) { return weekdayNames[weekday.c_encoding()]; }

std::string_view monthText(chrono::month month) { return monthNames[static_cast<unsigned>(month) - 1]; }

std::optional<chrono::year_month> monthFromText(std::string_view text)
{
    if (text.size() != monthLength || text[4] != '-') {
        return std::nullopt;
    }
    const std::optional<int> year = numberFromDigits(text.substr(0, 4));
    const std::optional<int> number = numberFromDigits(text.substr(5));
    if (!year || !number) {
        return std::nullopt;
    }
    const chrono::year_month month(chrono::year{*year}, chrono::month(static_cast<unsigned>(*number)));
    return month.ok() ? std::optional(month) : std::nullopt;
}

std::optional<chrono::local_days> dayFromText(std::string_view text)
{
    if (text.size() != dayLength || text[monthLength] != '-') {
        return std::nullopt;
    }
    const std::optional<chrono::year_month> month = monthFromText(text.substr(0, monthLength));
    const std::optional<int> number = numberFromDigits(text.substr(monthLength + 1));
    if (!month || !number) {
        return std::nullopt;
    }
    const chrono::year_month_day day = *month / chrono::day(static_cast<unsigned>(*number));
    return day.ok() ? std::optional(chrono::local_days(day)) : std::nullopt;
}

std::optional<chrono::weekday> weekdayFromText(std::string_view text)
{
    for (unsigned number = 0; number < weekdayNames.size(); ++number) {
        const std::string name = lowerCase(weekdayNames[number]);
        if (text == name || text == name.substr(0, shortLength)) {
            return chrono::weekday(number);
        }
    }
    return std::nullopt;
}

std::optional<int> numberFromDigits(std::string_view digits)
{
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end && digits.front() != '-';
    return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace quillmere::base
