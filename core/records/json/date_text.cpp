#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/key_conversion.hpp>

#include <algorithm>
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

/// The whole number at or below a value that fits 64 bits.
std::int64_t floorOf(double value)
{
    const auto towardZero = static_cast<std::int64_t>(value);
    return towardZero - (static_cast<double>(towardZero) > value ? 1 : 0);
}

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

/// Whether `text` consists of the characters of `shape`, in which 0 stands for any digit.
bool hasShape(std::string_view text, std::string_view shape)
{
    const auto fits = [](char found, char wanted) {
        return wanted == '0' ? isDigit(found) : found == wanted;
    };
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(), fits);
}

/// The number that a text of nothing but digits stands for.
unsigned number(std::string_view digits)
{
    unsigned value = 0;
    for (const char digit : digits) {
        value = value * 10 + static_cast<unsigned>(digit - '0');
    }
    return value;
}

/// What follows the seconds, "Z" or ±hh:mm, in seconds east of UTC.
std::optional<std::int64_t> offsetFromText(std::string_view text)
{
    if (text == "Z") {
        return 0;
    }
    const bool east = hasShape(text, "+00:00");
    if (!east && !hasShape(text, "-00:00")) {
        return std::nullopt;
    }
    const unsigned hours = number(text.substr(1, 2));
    const unsigned minutes = number(text.substr(4, 2));
    if (hours > 23 || minutes > 59) {
        return std::nullopt;
    }
    const std::int64_t magnitude = hours * 3600 + minutes * 60;
    return east ? magnitude : -magnitude;
}

}  // namespace

bool putDateText(char* destination, Instant instant) noexcept
{
    const double exact = instant.secondsSince1970();
    if (!(exact >= static_cast<double>(firstSecond) && exact < static_cast<double>(endSecond))) {
        return false;
    }
    const auto secondsSinceFirst = static_cast<std::uint64_t>(floorOf(exact) - firstSecond);
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
    return true;
}

std::optional<Instant> instantFromDateText(std::string_view text) noexcept
{
    constexpr std::string_view shape = "0000-00-00T00:00:00";
    if (!hasShape(text.substr(0, shape.size()), shape)) {
        return std::nullopt;
    }
    const unsigned hour = number(text.substr(11, 2));
    const unsigned minute = number(text.substr(14, 2));
    const unsigned second = number(text.substr(17, 2));
    const std::optional<std::int64_t> offset = offsetFromText(text.substr(shape.size()));
    if (!offset || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const year_month_day date{year(static_cast<int>(number(text.substr(0, 4)))),
                              month(number(text.substr(5, 2))), day(number(text.substr(8, 2)))};
    if (!date.ok()) {
        return std::nullopt;
    }
    const std::int64_t daysSince1970 = sys_days(date).time_since_epoch().count();
    const std::int64_t secondOfDay = hour * 3600 + minute * 60 + second;
    return Instant(static_cast<double>(daysSince1970 * secondsPerDay + secondOfDay - *offset));
}

}  // namespace quillmere::json
