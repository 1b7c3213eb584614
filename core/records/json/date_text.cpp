#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/date_text.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>

namespace quillmere::json {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr std::int64_t secondsPerDay = 86'400;

constexpr std::int64_t secondsAtStartOf(year first)
{
    return sys_days(first / 1 / 1).time_since_epoch().count() * secondsPerDay;
}
constexpr std::int64_t firstSecond = secondsAtStartOf(year(0));
constexpr std::int64_t endSecond = secondsAtStartOf(year(10'000));

/// The decimal digits of 00 to 99 in a row.
constexpr auto digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t value = 0; value < 100; ++value) {
        pairs[2 * value] = static_cast<char>('0' + value / 10);
        pairs[2 * value + 1] = static_cast<char>('0' + value % 10);
    }
    return pairs;
}();

/// Writes a value below 100 in two decimal digits.
void putTwoDigits(char* destination, unsigned value) { std::memcpy(destination, &digitPairs[2 * value], 2); }

/// The value of two decimal digits; 100, which no part of a date or a time can be, when they are none.
unsigned twoDigits(const char* digits)
{
    const auto tens = static_cast<unsigned>(digits[0] - '0');
    const auto ones = static_cast<unsigned>(digits[1] - '0');
    return tens <= 9 && ones <= 9 ? tens * 10 + ones : 100;
}

/// The offset after the seconds, "Z" or ±hh:mm, in seconds east of UTC.
std::optional<std::int64_t> offsetFromText(std::string_view text)
{
    if (text == "Z") {
        return 0;
    }
    constexpr std::string_view shape = "+hh:mm";
    if (text.size() != shape.size() || (text[0] != '+' && text[0] != '-') || text[3] != ':') {
        return std::nullopt;
    }
    const unsigned hours = twoDigits(&text[1]);
    const unsigned minutes = twoDigits(&text[4]);
    if (hours > 23 || minutes > 59) {
        return std::nullopt;
    }
    const std::int64_t magnitude = hours * 3600 + minutes * 60;
    return text[0] == '+' ? magnitude : -magnitude;
}

}  // namespace

bool hasDateText(Instant instant) noexcept
{
    const double exact = instant.secondsSince1970();
    return exact >= static_cast<double>(firstSecond) && exact < static_cast<double>(endSecond);
}

void requireDateText(Instant instant)
{
    if (!hasDateText(instant)) {
        throw EncodingError("an instant that is not finite or lies outside the years 0000 to 9999");
    }
}

std::string dateText(Instant instant)
{
    requireDateText(instant);
    std::string text(dateTextLength, ' ');
    putDateText(text.data(), instant);
    return text;
}

void putDateText(char* destination, Instant instant) noexcept
{
    const std::int64_t whole = wholeSeconds(instant.secondsSince1970());
    const auto secondsSinceFirst = static_cast<std::uint64_t>(whole - firstSecond);
    const auto daysSinceFirst = static_cast<unsigned>(secondsSinceFirst / secondsPerDay);
    const auto secondOfDay = static_cast<unsigned>(secondsSinceFirst % secondsPerDay);
    const year_month_day date{sys_days(year(0) / 1 / 1) + days(daysSinceFirst)};
    const auto yearNumber = static_cast<unsigned>(static_cast<int>(date.year()));

    std::memcpy(destination, "0000-00-00T00:00:00Z", dateTextLength);
    putTwoDigits(destination, yearNumber / 100);
    putTwoDigits(destination + 2, yearNumber % 100);
    putTwoDigits(destination + 5, static_cast<unsigned>(date.month()));
    putTwoDigits(destination + 8, static_cast<unsigned>(date.day()));
    putTwoDigits(destination + 11, secondOfDay / 3600);
    putTwoDigits(destination + 14, secondOfDay / 60 % 60);
    putTwoDigits(destination + 17, secondOfDay % 60);
}

std::optional<Instant> instantFromDateText(std::string_view text) noexcept
{
    constexpr std::string_view shape = "YYYY-MM-DDThh:mm:ss";
    if (text.size() <= shape.size() || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    const unsigned century = twoDigits(&text[0]);
    const unsigned yearOfCentury = twoDigits(&text[2]);
    const unsigned hour = twoDigits(&text[11]);
    const unsigned minute = twoDigits(&text[14]);
    const unsigned second = twoDigits(&text[17]);
    const std::optional<std::int64_t> offset = offsetFromText(text.substr(shape.size()));
    if (!offset || century > 99 || yearOfCentury > 99 || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const year_month_day date{year(static_cast<int>(century * 100 + yearOfCentury)),
                              month(twoDigits(&text[5])), day(twoDigits(&text[8]))};
    if (!date.ok()) {
        return std::nullopt;
    }
    const std::int64_t daysSince1970 = sys_days(date).time_since_epoch().count();
    const std::int64_t secondOfDay = hour * 3600 + minute * 60 + second;
    const std::int64_t seconds = daysSince1970 * secondsPerDay + secondOfDay - *offset;
    // The offset may move the instant out of the years that can be written. An instant that is read must be
    // writable again.
    const bool canBeWritten = seconds >= firstSecond && seconds < endSecond;
    return canBeWritten ? std::optional(Instant(static_cast<double>(seconds))) : std::nullopt;
}

}  // namespace quillmere::json
