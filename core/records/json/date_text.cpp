#include <quillmere/records/json/date_text.hpp>
#include <quillmere/records/json/key_conversion.hpp>

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

/// Takes a date text apart from the front; anything unexpected spoils it for good.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    unsigned digits(std::size_t width)
    {
        unsigned value = 0;
        for (std::size_t index = 0; index < width; ++index) {
            const char digit = take();
            good_ = good_ && isDigit(digit);
            value = value * 10 + static_cast<unsigned>(digit - '0');
        }
        return value;
    }

    void expect(char character) { good_ = take() == character && good_; }

    /// The next character; NUL at the end.
    char take()
    {
        const char front = rest_.empty() ? '\0' : rest_.front();
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return front;
    }

    bool atGoodEnd() const { return good_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool good_ = true;
};

}  // namespace

std::optional<DateText> dateText(Instant instant) noexcept
{
    const double exact = instant.secondsSince1970();
    if (!(exact >= static_cast<double>(firstSecond) && exact < static_cast<double>(endSecond))) {
        return std::nullopt;
    }
    const auto secondsSinceFirst = static_cast<std::uint64_t>(floorOf(exact) - firstSecond);
    const auto daysSinceFirst = static_cast<unsigned>(secondsSinceFirst / secondsPerDay);
    const auto secondOfDay = static_cast<unsigned>(secondsSinceFirst % secondsPerDay);
    const year_month_day date{sys_days(year(0) / 1 / 1) + days(daysSinceFirst)};
    const auto yearNumber = static_cast<unsigned>(static_cast<int>(date.year()));

    DateText text{'0', '0', '0', '0', '-', '0', '0', '-', '0', '0',
                  'T', '0', '0', ':', '0', '0', ':', '0', '0', 'Z'};
    putTwoDigits(&text[0], yearNumber / 100);
    putTwoDigits(&text[2], yearNumber % 100);
    putTwoDigits(&text[5], static_cast<unsigned>(date.month()));
    putTwoDigits(&text[8], static_cast<unsigned>(date.day()));
    putTwoDigits(&text[11], secondOfDay / 3600);
    putTwoDigits(&text[14], secondOfDay / 60 % 60);
    putTwoDigits(&text[17], secondOfDay % 60);
    return text;
}

std::optional<Instant> instantFromDateText(std::string_view text) noexcept
{
    Scanner scanner(text);
    const unsigned yearNumber = scanner.digits(4);
    scanner.expect('-');
    const unsigned monthNumber = scanner.digits(2);
    scanner.expect('-');
    const unsigned dayNumber = scanner.digits(2);
    scanner.expect('T');
    const unsigned hour = scanner.digits(2);
    scanner.expect(':');
    const unsigned minute = scanner.digits(2);
    scanner.expect(':');
    const unsigned second = scanner.digits(2);

    std::int64_t offset = 0;
    const char zone = scanner.take();
    if (zone == '+' || zone == '-') {
        const unsigned offsetHours = scanner.digits(2);
        scanner.expect(':');
        const unsigned offsetMinutes = scanner.digits(2);
        if (offsetHours > 23 || offsetMinutes > 59) {
            return std::nullopt;
        }
        const std::int64_t magnitude = offsetHours * 3600 + offsetMinutes * 60;
        offset = zone == '+' ? magnitude : -magnitude;
    } else if (zone != 'Z') {
        return std::nullopt;
    }

    if (!scanner.atGoodEnd() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const year_month_day date{year(static_cast<int>(yearNumber)), month(monthNumber), day(dayNumber)};
    if (!date.ok()) {
        return std::nullopt;
    }
    const std::int64_t daysSince1970 = sys_days(date).time_since_epoch().count();
    const std::int64_t secondOfDay = hour * 3600 + minute * 60 + second;
    return Instant(static_cast<double>(daysSince1970 * secondsPerDay + secondOfDay - offset));
}

}  // namespace quillmere::json
